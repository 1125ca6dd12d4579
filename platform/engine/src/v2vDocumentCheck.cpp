#include "v2vDocumentCheck.h"

#include <algorithm>
#include <limits>
#include <span>
#include <unordered_set>
#include <vector>

#include "apNumberChecks.h"

namespace {

bool are_finite(const std::vector<annVector>& vectors) {
  static_assert(sizeof(annVector) == 3 * sizeof(double));
  return ap_all_finite({reinterpret_cast<const double*>(vectors.data()), 3 * vectors.size()});
}

bool are_finite(std::span<const annColour> colours) {
  static_assert(sizeof(annColour) == 4 * sizeof(float));
  return ap_all_finite({reinterpret_cast<const float*>(colours.data()), 4 * colours.size()});
}

bool is_finite_colour(const annColour& colour) {
  return are_finite({&colour, 1});
}

const char* fault_of(const annVertices& vertices) {
  if (!are_finite(vertices.points)) {
    return "a coordinate is not a finite number";
  }
  auto fits = [&](std::size_t count) { return count == 0 || count == vertices.points.size(); };
  if (!fits(vertices.normals.size())) return "not every vertex has a normal";
  if (!fits(vertices.colours.size())) return "not every vertex has a colour";
  if (!are_finite(vertices.normals) || !are_finite(vertices.normal_pool)) {
    return "a normal is not of finite numbers";
  }
  if (!are_finite(vertices.colours)) {
    return "a vertex colour is not of finite numbers";
  }
  return nullptr;
}

bool starts_are_sound(const annMesh& mesh) {
  const auto& starts = mesh.face_starts;
  if (starts.front() != 0 || starts.back() != mesh.corners.size()) return false;
  for (std::size_t i = 1; i < starts.size(); ++i) {
    if (starts[i] < starts[i - 1] || starts[i] - starts[i - 1] < 3) return false;
  }
  return true;
}

bool are_below(const std::vector<std::uint32_t>& numbers, std::size_t bound) {
  constexpr std::size_t largest = std::numeric_limits<std::uint32_t>::max();
  if (bound == 0 || bound > largest) return numbers.empty() || bound > 0;
  return ap_all_at_most(numbers, static_cast<std::uint32_t>(bound - 1));
}

const char* fault_of(const annMesh& mesh) {
  if (!mesh.vertices) return "it has no vertices";
  if (!are_below(mesh.corners, mesh.vertices->points.size())) {
    return "a face names a vertex that is not there";
  }
  if (mesh.all_triangles() ? mesh.corners.size() % 3 != 0 : !starts_are_sound(mesh)) return "its faces do not fit";

  const auto& normals = mesh.corner_normals;
  if (!normals.empty() && normals.size() != mesh.corners.size()) return "its normals do not fit its corners";
  const std::size_t pool = mesh.vertices->normal_pool.size();
  auto is_normal = [&](std::uint32_t index) { return index == annMesh::no_normal || index < pool; };
  if (!std::all_of(normals.begin(), normals.end(), is_normal)) return "a corner names a normal that is not there";

  auto has_colour = [](const annMaterial& material) { return is_finite_colour(material.colour); };
  if (!std::all_of(mesh.materials.begin(), mesh.materials.end(), has_colour)) {
    return "the colour of a material is not of finite numbers";
  }

  const auto& looks = mesh.face_materials;
  if (!looks.empty() && looks.size() != mesh.face_count()) return "not every face has a material";
  auto is_known = [&](std::uint32_t look) { return look == annMesh::no_material || look < mesh.materials.size(); };
  return std::all_of(looks.begin(), looks.end(), is_known) ? nullptr : "a face names a material that is not there";
}

}  // namespace

utString v2v_fault_of(const annDocument& document) {
  // Parts with several instances are checked once. A list instead of recursion, for trees of any depth.
  std::unordered_set<const void*> seen;
  std::vector<const annNode*> pending{&document.root};
  while (!pending.empty()) {
    const annNode& node = *pending.back();
    pending.pop_back();
    if (!ap_all_finite(node.transform.m)) return "the reader gave an invalid placement";
    if (node.colour && !is_finite_colour(*node.colour)) return "the reader gave an invalid colour";
    if (const annMesh* mesh = node.body.mesh.get(); mesh && seen.insert(mesh).second) {
      const char* fault = fault_of(*mesh);
      if (!fault && seen.insert(mesh->vertices.get()).second) fault = fault_of(*mesh->vertices);
      if (fault) return utString("the reader gave an invalid mesh: ") + fault;
    }
    for (const auto& child : node.children) {
      if (!child) return "the reader gave an invalid tree";
      pending.push_back(child.get());
    }
  }
  return {};
}

bool v2v_is_empty(const annDocument& document) {
  const std::vector<annPlacedBody> bodies = ann_placed_bodies(document);
  return std::none_of(bodies.begin(), bodies.end(), [](const annPlacedBody& placed) {
    const annBody& body = placed.node->body;
    return body.shape || (body.mesh && !body.mesh->vertices->points.empty());
  });
}
