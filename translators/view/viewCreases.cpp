#include "viewCreases.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <span>
#include <tuple>

namespace {

// The cosine of 30.1 degrees: the sides of a regular prism with twelve sides are smooth in spite of rounding.
constexpr float cosine_of_crease = 0.86515F;

constexpr std::uint32_t none = annMesh::no_material;

using Normal = viewMesh::Normal;

float dot(const Normal& a, const Normal& b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}

// The unit vector; null for a vector that is too small, too large or not finite.
Normal unit(annVector v) {
  const double largest = std::max({std::fabs(v.x), std::fabs(v.y), std::fabs(v.z)});
  if (!(largest > 0) || !std::isfinite(v.x + v.y + v.z)) return {};
  v = v * (1 / largest);
  v = v * (1 / std::sqrt(ann_dot(v, v)));
  return {static_cast<float>(v.x), static_cast<float>(v.y), static_cast<float>(v.z)};
}

bool is_null(const Normal& n) {
  return n.x == 0 && n.y == 0 && n.z == 0;
}

// In steps of about 0.003 degrees.
std::array<int, 3> in_steps(const Normal& n) {
  constexpr float steps = 16384;
  return {static_cast<int>(std::lround(n.x * steps)), static_cast<int>(std::lround(n.y * steps)),
          static_cast<int>(std::lround(n.z * steps))};
}

class Splitter {
 public:
  Splitter(const annMesh& source, const std::vector<annVector>& points, const std::vector<std::uint32_t>& places,
           const std::vector<std::uint32_t>& sources, viewMesh& made)
      : source_(source), points_(points), places_(places), sources_(sources), made_(made) {}

  void split() {
    make_facets();
    take_normals();
    gather_corners();
    made_.corners.resize(places_.size());
    made_.points.reserve(points_.size());
    made_.normals.reserve(points_.size());
    any_vertex_.assign(points_.size(), none);
    bool skin = true;
    for (std::uint32_t place = 0; place < points_.size(); ++place) {
      if (first_[place] == first_[place + 1]) continue;
      skin = join_round(place) && skin;
      make_vertices(place);
    }
    for (std::uint32_t& end : made_.edges) end = any_vertex_[end];
    made_.closed = skin && volume() > 0;
  }

 private:
  // An edge from the current point, as seen by one of its triangles.
  struct Spoke {
    std::uint32_t to;
    std::uint32_t corner;  // in the fan
    bool outwards;         // the triangle runs along it away from the point

    bool operator<(const Spoke& other) const { return to != other.to ? to < other.to : corner < other.corner; }
  };

  // A corner of the fan with all that determines its vertex: its own normal or, if that is null, its smoothing group,
  // and the vertex whose colour it has.
  struct Key {
    std::array<int, 3> own;  // in steps, so that rounding errors do not matter
    std::uint32_t group, colour, corner;

    bool shades_as(const Key& other) const { return own == other.own && group == other.group; }
    bool operator<(const Key& other) const {
      return std::tie(own, group, colour, corner) < std::tie(other.own, other.group, other.colour, other.corner);
    }
  };

  void make_facets() {
    facets_.resize(places_.size() / 3);
    for (std::size_t t = 0; t < facets_.size(); ++t) {
      const annVector& a = points_[places_[3 * t]];
      facets_[t] = unit(ann_cross(points_[places_[3 * t + 1]] - a, points_[places_[3 * t + 2]] - a));
    }
  }

  // Copies the mesh's normals; null at corners without one.
  void take_normals() {
    if (!source_.has_normals()) return;
    own_.resize(places_.size());
    for (std::size_t i = 0; i < own_.size(); ++i) {
      if (const annVector* normal = source_.normal(sources_[i])) own_[i] = unit(*normal);
    }
  }
  Normal own(std::uint32_t corner) const { return own_.empty() ? Normal{} : own_[corner]; }

  // Groups the corners by point.
  void gather_corners() {
    first_.assign(points_.size() + 1, 0);
    for (std::uint32_t place : places_) ++first_[place + 1];
    std::partial_sum(first_.begin(), first_.end(), first_.begin());
    corners_.resize(places_.size());
    std::vector<std::uint32_t> next(first_.begin(), first_.end() - 1);
    for (std::uint32_t corner = 0; corner < places_.size(); ++corner) corners_[next[places_[corner]]++] = corner;
  }

  // Finds the smoothing groups of the triangles around a point, and its edges. True when the triangles form a closed
  // fan.
  bool join_round(std::uint32_t place) {
    fan_.assign(corners_.begin() + first_[place], corners_.begin() + first_[place + 1]);
    group_.resize(fan_.size());
    std::iota(group_.begin(), group_.end(), 0U);
    spokes_.clear();
    for (std::uint32_t i = 0; i < fan_.size(); ++i) {
      const std::uint32_t triangle = fan_[i] / 3 * 3, k = fan_[i] % 3;
      spokes_.push_back({places_[triangle + (k + 1) % 3], i, true});
      spokes_.push_back({places_[triangle + (k + 2) % 3], i, false});
    }
    std::sort(spokes_.begin(), spokes_.end());
    bool closed = true;
    for (std::size_t at = 0; at < spokes_.size();) {
      std::size_t end = at + 1;
      while (end < spokes_.size() && spokes_[end].to == spokes_[at].to) ++end;
      const bool pair = end - at == 2;
      closed = closed && pair && spokes_[at].outwards != spokes_[at + 1].outwards;
      const bool smooth = pair && is_smooth(spokes_[at], spokes_[at + 1]);
      if (smooth) join(spokes_[at].corner, spokes_[at + 1].corner);
      const bool line = !pair || has_line(spokes_[at], spokes_[at + 1], smooth);
      if (line && place < spokes_[at].to) made_.edges.insert(made_.edges.end(), {place, spokes_[at].to});
      at = end;
    }
    return closed;
  }

  bool is_smooth(const Spoke& one, const Spoke& other) const {
    const Normal& a = facets_[fan_[one.corner] / 3];
    const Normal& b = facets_[fan_[other.corner] / 3];
    if (is_null(a) || is_null(b)) return true;
    // If both run in the same direction, one of them is inverted.
    const float facing = one.outwards != other.outwards ? 1.0F : -1.0F;
    return facing * dot(a, b) > cosine_of_crease;
  }

  // True when an edge is drawn as a line. The mesh's normals decide if both triangles have them at both ends. Normals
  // far from those of the triangles are not used, for example those of a cube with shared vertices.
  bool has_line(const Spoke& one, const Spoke& other, bool smooth) const {
    bool smooth_by_normals = true;
    for (const bool far_end : {false, true}) {
      const Normal a = own(corner_of(one, far_end)), b = own(corner_of(other, far_end));
      if (!is_near_facet(a, one) || !is_near_facet(b, other)) return !smooth;
      smooth_by_normals = smooth_by_normals && std::fabs(dot(a, b)) > cosine_of_crease;
    }
    return !smooth_by_normals;
  }

  // The corner of a spoke's triangle at the current point, or at the spoke's other end.
  std::uint32_t corner_of(const Spoke& spoke, bool far_end) const {
    const std::uint32_t corner = fan_[spoke.corner];
    return far_end ? corner / 3 * 3 + (corner % 3 + (spoke.outwards ? 1 : 2)) % 3 : corner;
  }

  bool is_near_facet(const Normal& normal, const Spoke& spoke) const {
    return std::fabs(dot(normal, facets_[fan_[spoke.corner] / 3])) > cosine_of_crease;
  }

  std::uint32_t leader(std::uint32_t corner) {
    while (group_[corner] != corner) corner = group_[corner] = group_[group_[corner]];
    return corner;
  }
  void join(std::uint32_t one, std::uint32_t other) {
    const std::uint32_t a = leader(one), b = leader(other);
    group_[std::max(a, b)] = std::min(a, b);
  }

  void make_vertices(std::uint32_t place) {
    any_vertex_[place] = static_cast<std::uint32_t>(made_.points.size());
    keys_.clear();
    for (std::uint32_t i = 0; i < fan_.size(); ++i) {
      const Normal normal = own(fan_[i]);
      keys_.push_back({in_steps(normal), is_null(normal) ? leader(i) : 0, has_colours() ? vertex(i) : 0, i});
    }
    std::sort(keys_.begin(), keys_.end());
    for (std::size_t at = 0; at < keys_.size();) {
      std::size_t end = at + 1;
      while (end < keys_.size() && keys_[end].shades_as(keys_[at])) ++end;
      make_vertices_of_group(place, std::span(keys_).subspan(at, end - at));
      at = end;
    }
  }

  void make_vertices_of_group(std::uint32_t place, std::span<const Key> group) {
    const Normal own_normal = own(fan_[group.front().corner]);
    const Normal normal = is_null(own_normal) ? normal_of(group) : own_normal;
    for (std::size_t i = 0; i < group.size(); ++i) {
      const Key& key = group[i];
      if (i == 0 || key.colour != group[i - 1].colour) {
        made_.points.push_back(points_[place]);
        made_.normals.push_back(normal);
        if (has_colours()) made_.colours.push_back(source_.vertices->colours[key.colour]);
      }
      made_.corners[fan_[key.corner]] = static_cast<std::uint32_t>(made_.points.size() - 1);
    }
  }

  bool has_colours() const { return !source_.vertices->colours.empty(); }
  // The mesh vertex of a corner of the fan.
  std::uint32_t vertex(std::uint32_t corner) const { return source_.corners[sources_[fan_[corner]]]; }

  // The mean normal of the triangles of a group, weighted by their angles at the point.
  Normal normal_of(std::span<const Key> group) const {
    if (group.size() == 1) return facets_[fan_[group.front().corner] / 3];
    annVector sum;
    for (const Key& key : group) {
      const Normal& facet = facets_[fan_[key.corner] / 3];
      sum = sum + annVector{facet.x, facet.y, facet.z} * angle_at(fan_[key.corner]);
    }
    return unit(sum);
  }

  double angle_at(std::uint32_t corner) const {
    const std::uint32_t triangle = corner / 3 * 3, k = corner % 3;
    const annVector& at = points_[places_[corner]];
    const Normal a = unit(points_[places_[triangle + (k + 1) % 3]] - at);
    const Normal b = unit(points_[places_[triangle + (k + 2) % 3]] - at);
    return std::acos(std::clamp(dot(a, b), -1.0F, 1.0F));
  }

  // Six times the volume, relative to one of the points to keep precision far from the origin.
  double volume() const {
    double sum = 0;
    const annVector& from = points_.front();
    for (std::size_t i = 0; i < places_.size(); i += 3) {
      const annVector a = points_[places_[i]] - from;
      sum += ann_dot(a, ann_cross(points_[places_[i + 1]] - from, points_[places_[i + 2]] - from));
    }
    return sum;
  }

  const annMesh& source_;
  const std::vector<annVector>& points_;
  const std::vector<std::uint32_t>& places_;
  const std::vector<std::uint32_t>& sources_;
  viewMesh& made_;
  std::vector<Normal> facets_;
  std::vector<Normal> own_;  // of the corners; empty when the mesh has no normals
  std::vector<std::uint32_t> first_, corners_;
  std::vector<std::uint32_t> any_vertex_;  // one vertex at each point
  // Data of the current point.
  std::vector<std::uint32_t> fan_, group_;
  std::vector<Spoke> spokes_;
  std::vector<Key> keys_;
};

}  // namespace

void view_split_at_creases(const annMesh& source, const std::vector<annVector>& points,
                           const std::vector<std::uint32_t>& places, const std::vector<std::uint32_t>& sources,
                           viewMesh& made) {
  Splitter(source, points, places, sources, made).split();
}
