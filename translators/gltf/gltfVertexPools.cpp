#include "gltfVertexPools.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "annMesh.h"
#include "annWelder.h"

namespace {

// Integer positions and normals come from the extension KHR_mesh_quantization.
const gltfElements points_expected{"positions", {3}, {gltfFLOAT, gltfINT8, gltfUINT8, gltfINT16, gltfUINT16}};
const gltfElements normals_expected{"normals", {3}, {gltfFLOAT, gltfINT8, gltfINT16}};
const gltfElements colours_expected{"colours", {3, 4}, {gltfFLOAT, gltfUINT8, gltfUINT16}};

constexpr double unit_tolerance = 1e-5;  // for the squared length of a normal

bool is_finite(const annVector& v) {
  return 0 * v.x + 0 * v.y + 0 * v.z == 0;
}

// The unit vector; numbers are not changed if the length is already 1.
annVector unit(const annVector& v) {
  const double square = ann_dot(v, v);
  if (std::fabs(square - 1) <= unit_tolerance || square == 0) return v;
  return v * (1 / std::hypot(v.x, v.y, v.z));
}

template <typename T>
annVector vector_at(const char* element, bool normalized) {
  return {gltf_component<T>(element, 0, normalized), gltf_component<T>(element, 1, normalized),
          gltf_component<T>(element, 2, normalized)};
}

std::string not_finite(std::size_t index) {
  return "element " + std::to_string(index) + " is not of finite numbers";
}

bool colours_are_bases(const std::vector<gltfAttributes>& sets, const gltfVertexPool& pool) {
  const std::vector<annColour>& colours = pool.vertices->colours;
  for (std::size_t set = 0; set < sets.size(); ++set) {
    const annColour base = sets[set].base.shown();
    for (std::size_t i = pool.starts[set]; i < pool.starts[set + 1]; ++i) {
      if (colours[i] != base) return false;
    }
  }
  return true;
}

}  // namespace

const gltfVertexPool* gltfVertexPools::find(const std::vector<gltfAttributes>& sets, bool faces_have_looks) {
  const auto [entry, is_new] = pools_.try_emplace({sets, faces_have_looks});
  if (!is_new || make(sets, faces_have_looks, entry->second)) return &entry->second;
  pools_.erase(entry);
  return nullptr;
}

bool gltfVertexPools::make(const std::vector<gltfAttributes>& sets, bool faces_have_looks, gltfVertexPool& pool) {
  annVertices& vertices = *pool.vertices;
  auto count_with = [&](std::size_t gltfAttributes::*member) {
    return static_cast<std::size_t>(std::count_if(
        sets.begin(), sets.end(), [&](const gltfAttributes& set) { return set.*member != gltfAttributes::none; }));
  };
  const std::size_t with_normals = count_with(&gltfAttributes::normals);
  if (with_normals > 0 && with_normals < sets.size()) {
    findings_.count(velabsNOTE, "normals are left out of meshes that have them in part only");
  }
  const bool has_colours = count_with(&gltfAttributes::colours) > 0;
  pool.starts.push_back(0);
  for (const gltfAttributes& set : sets) {
    if (!add_points(set.positions, vertices.points)) return false;
    const std::size_t count = vertices.points.size() - pool.starts.back();
    if (with_normals == sets.size() && !add_normals(set.normals, count, vertices.normals)) return false;
    if (set.colours != gltfAttributes::none) {
      if (!add_colours(set, count, vertices.colours)) return false;
    } else if (has_colours) {
      vertices.colours.resize(vertices.points.size(), set.base.shown());
    }
    pool.starts.push_back(vertices.points.size());
  }
  if (faces_have_looks && has_colours && colours_are_bases(sets, pool)) vertices.colours = {};
  if (options_.weld) weld(pool);
  return true;
}

bool gltfVertexPools::add_points(std::size_t accessor_index, std::vector<annVector>& points) {
  gltfAccessor accessor;
  if (!accessors_.find(accessor_index, points_expected, accessor)) return false;
  if (!work_.allows(accessor.count)) {
    return fail(accessor, std::to_string(accessor.count) +
                              " elements are more than a file of this size can hold: it names its bytes too often");
  }
  const std::size_t start = points.size();
  if (accessor.count >= annMesh::no_material - start) return fail(accessor, "the mesh has too many vertices");
  points.resize(start + accessor.count);
  return gltf_with_type(accessor.type, [&]<typename T>(T) {
    return gltf_for_each_element(accessor, work_, [&](std::size_t i, const char* element) {
      const annVector point = vector_at<T>(element, accessor.normalized) * options_.factor;
      points[start + i] = point;
      return is_finite(point) || fail(accessor, not_finite(i));
    });
  });
}

bool gltfVertexPools::add_normals(std::size_t accessor_index, std::size_t expected, std::vector<annVector>& normals) {
  gltfAccessor accessor;
  if (!accessors_.find(accessor_index, normals_expected, accessor) || !has_count(accessor, expected)) return false;
  const std::size_t start = normals.size();
  normals.resize(start + accessor.count);
  return gltf_with_type(accessor.type, [&]<typename T>(T) {
    return gltf_for_each_element(accessor, work_, [&](std::size_t i, const char* element) {
      const annVector normal = vector_at<T>(element, true);
      normals[start + i] = unit(normal);
      return is_finite(normal) || fail(accessor, not_finite(i));
    });
  });
}

bool gltfVertexPools::add_colours(const gltfAttributes& set, std::size_t expected, std::vector<annColour>& colours) {
  gltfAccessor accessor;
  if (!accessors_.find(set.colours, colours_expected, accessor) || !has_count(accessor, expected)) return false;
  const std::size_t start = colours.size();
  colours.resize(start + accessor.count);
  return gltf_with_type(accessor.type, [&]<typename T>(T) {
    // Neighbours often have the same colour, and the conversion is slow.
    annVector last;
    annColour shown{0, 0, 0, 1};
    return gltf_for_each_element(accessor, work_, [&](std::size_t i, const char* element) {
      const annVector colour = vector_at<T>(element, true);
      const double opacity = accessor.components == 4 ? gltf_component<T>(element, 3, true) : 1;
      if (!is_finite(colour) || !std::isfinite(opacity)) return fail(accessor, not_finite(i));
      if (colour != last) {
        shown = set.base.shown(colour.x, colour.y, colour.z, opacity);
        last = colour;
      }
      shown.opacity = set.base.alpha.opacity(set.base.colour[3] * opacity);
      colours[start + i] = shown;
      return true;
    });
  });
}

bool gltfVertexPools::has_count(const gltfAccessor& accessor, std::size_t expected) {
  if (accessor.count == expected) return true;
  return fail(accessor,
              "it has " + std::to_string(accessor.count) + " elements for " + std::to_string(expected) + " positions");
}

bool gltfVertexPools::fail(const gltfAccessor& accessor, std::string_view reason) {
  return accessors_.fail(accessor, reason);
}

void gltfVertexPools::weld(gltfVertexPool& pool) {
  annVertices& vertices = *pool.vertices;
  std::vector<annVector> points;
  std::vector<annColour> colours;
  std::vector<std::uint32_t> first_at;  // the first vertex of each point
  bool normals_agree = true, colours_agree = true;
  annWelder welder(points, vertices.points.size());
  pool.welded.reserve(vertices.points.size());
  for (std::size_t i = 0; i < vertices.points.size(); ++i) {
    const std::size_t known = points.size();
    const std::uint32_t number = welder.number_of(vertices.points[i]);
    pool.welded.push_back(number);
    if (number == known) {
      first_at.push_back(static_cast<std::uint32_t>(i));
      if (!vertices.colours.empty()) colours.push_back(vertices.colours[i]);
      continue;
    }
    normals_agree =
        normals_agree && (vertices.normals.empty() || vertices.normals[first_at[number]] == vertices.normals[i]);
    colours_agree = colours_agree && (colours.empty() || colours[number] == vertices.colours[i]);
  }
  if (!colours_agree) {
    findings_.count(velabsNOTE, "vertex colours are left out of meshes whose welded points have several");
  }
  vertices.points = std::move(points);
  weld_normals(pool, first_at, normals_agree);
  vertices.colours = colours_agree ? std::move(colours) : std::vector<annColour>();
}

void gltfVertexPools::weld_normals(gltfVertexPool& pool, const std::vector<std::uint32_t>& first_at, bool agree) {
  annVertices& vertices = *pool.vertices;
  const std::vector<annVector> normals = std::move(vertices.normals);
  vertices.normals = {};
  if (normals.empty()) return;
  if (agree) {
    for (std::uint32_t first : first_at) vertices.normals.push_back(normals[first]);
    return;
  }
  pool.welded_normals.resize(normals.size());
  annWelder(vertices.normal_pool).numbers_of(normals, pool.welded_normals.data());
}
