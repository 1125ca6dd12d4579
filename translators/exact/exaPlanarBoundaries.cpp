#include "exaPlanarBoundaries.h"

#include <Precision.hxx>
#include <algorithm>
#include <cmath>
#include <numeric>

#include "annWelder.h"

namespace {

// Maximum number of corners that each narrow triangle adds to its neighbours. It is one where every edge belongs to
// two faces.
constexpr std::size_t corners_for_each = 8;

// Maximum depth of nested splits. Only an edge with a long row of narrow triangles on both sides needs more.
constexpr int deepest_split = 1000;

double distance(annVector a, annVector b) {
  const annVector along = b - a;
  return std::sqrt(ann_dot(along, along));
}

std::uint64_t key_of(std::uint32_t a, std::uint32_t b) {
  return std::uint64_t{std::min(a, b)} << 32 | std::max(a, b);
}

}  // namespace

exaPlanarBoundaries::exaPlanarBoundaries(const annMesh& mesh) {
  weld(mesh);
  exa_for_each_planar_face(mesh, [&](std::size_t, exaCorners corners) {
    take(corners);
    if (const std::optional<Narrow> found = narrow()) split(*found, 0);
    return true;
  });
  may_add_ = corners_for_each * splits_.size();
}

exaCorners exaPlanarBoundaries::around(exaCorners corners) {
  take(corners);
  if (corners_.size() < 3 || narrow()) return {};
  around_.clear();
  for (std::size_t i = 0; i < corners_.size(); ++i) add({corners_[i], corners_[(i + 1) % corners_.size()]});
  return around_;
}

void exaPlanarBoundaries::weld(const annMesh& mesh) {
  annWelder welder(points_, mesh.vertices->points.size());
  for (const annVector& point : mesh.vertices->points) numbers_.push_back(welder.number_of(point));
  united_.resize(points_.size());
  std::iota(united_.begin(), united_.end(), 0U);
  stands_for_others_.resize(points_.size());
  exa_for_each_planar_face(mesh, [&](std::size_t, exaCorners corners) {
    unite_near_ones(corners);
    return true;
  });
}

// Merges neighbouring points that are closer than the tolerance, but never through a third point: a row of short edges
// keeps its length.
void exaPlanarBoundaries::unite_near_ones(exaCorners corners) {
  for (std::size_t i = 0; i < corners.size(); ++i) {
    std::uint32_t point = point_of(corners[i]), other = point_of(corners[(i + 1) % corners.size()]);
    if (point == other || distance(points_[point], points_[other]) > Precision::Confusion()) continue;
    if (stands_for_others_[point]) std::swap(point, other);
    if (stands_for_others_[point]) continue;
    united_[point] = other;
    stands_for_others_[other] = true;
  }
}

// Stores the points of the corners, without consecutive duplicates.
void exaPlanarBoundaries::take(exaCorners corners) {
  corners_.clear();
  for (std::uint32_t corner : corners) {
    const std::uint32_t point = point_of(corner);
    if (corners_.empty() || corners_.back() != point) corners_.push_back(point);
  }
  while (corners_.size() > 1 && corners_.front() == corners_.back()) corners_.pop_back();
}

std::optional<exaPlanarBoundaries::Narrow> exaPlanarBoundaries::narrow() const {
  if (corners_.size() != 3) return std::nullopt;
  Narrow longest{corners_[0], corners_[2], corners_[1]};
  for (std::size_t i = 1; i < 3; ++i) {
    const Narrow edge{corners_[i], corners_[(i + 2) % 3], corners_[(i + 1) % 3]};
    if (is_shorter({longest.from, longest.to}, {edge.from, edge.to})) longest = edge;
  }
  const double size = distance(points_[longest.from], points_[longest.to]);
  const annVector area = exa_area_vector(points_, corners_);
  if (std::sqrt(ann_dot(area, area)) > size * Precision::Confusion()) return std::nullopt;
  return longest;
}

// Orders edges by length, then by their ends. Both parts of a split edge must be shorter than the edge.
bool exaPlanarBoundaries::is_shorter(const Edge& edge, const Edge& than) const {
  const double length = distance(points_[edge.first], points_[edge.second]);
  const double other = distance(points_[than.first], points_[than.second]);
  return length != other ? length < other : key_of(edge.first, edge.second) < key_of(than.first, than.second);
}

// If the edge already has a point between its ends, the two parts on either side of that point are split too.
void exaPlanarBoundaries::split(const Narrow& edge, int depth) {
  const Edge whole{edge.from, edge.to};
  if (!is_shorter({edge.from, edge.between}, whole) || !is_shorter({edge.between, edge.to}, whole)) return;
  const auto [known, is_new] = splits_.try_emplace(key_of(edge.from, edge.to), edge.between);
  const std::uint32_t other = known->second;
  if (is_new || other == edge.between || depth == deepest_split) return;
  const annVector start = points_[edge.from];
  if (distance(start, points_[edge.between]) < distance(start, points_[other])) {
    split({edge.from, edge.between, other}, depth + 1);
    split({edge.between, other, edge.to}, depth + 1);
  } else {
    split({other, edge.between, edge.to}, depth + 1);
    split({edge.from, other, edge.between}, depth + 1);
  }
}

// Appends the start of an edge and the points between its ends.
void exaPlanarBoundaries::add(const Edge& edge) {
  open_.assign(1, edge);
  while (!open_.empty()) {
    const auto [from, to] = open_.back();
    open_.pop_back();
    const auto between = splits_.find(key_of(from, to));
    if (between == splits_.end() || may_add_ == 0) {
      around_.push_back(from);
    } else {
      --may_add_;
      open_.emplace_back(between->second, to);
      open_.emplace_back(from, between->second);
    }
  }
}
