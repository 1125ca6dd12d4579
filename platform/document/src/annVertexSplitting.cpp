#include "annVertexSplitting.h"

#include <cmath>
#include <limits>
#include <optional>
#include <unordered_map>

#include "annWelder.h"

namespace {

constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();
constexpr annVector any_direction{0, 0, 1};

// Equal for normals that differ only by rounding in single precision or in surface computations.
annVector rounded(const annVector& normal) {
  constexpr double steps = 1 << 20;
  return {std::nearbyint(normal.x * steps), std::nearbyint(normal.y * steps), std::nearbyint(normal.z * steps)};
}

// Splits the vertices shared by some meshes.
class Splitting {
 public:
  explicit Splitting(const annVertices& from)
      : from_(from),
        normal_of_point_(from.points.size(), none),
        number_in_pool_(from.normal_pool.size(), none),
        numbers_(rounded_normals_),
        copies_(point_and_normal_) {
    made_->points = from.points;
    made_->colours = from.colours;
    made_->normals.resize(from.points.size());
  }

  std::shared_ptr<const annMesh> split(const annMesh& mesh) {
    auto result = std::make_shared<annMesh>();
    result->vertices = made_;
    result->face_starts = mesh.face_starts;
    result->materials = mesh.materials;
    result->face_materials = mesh.face_materials;
    result->corners.reserve(mesh.corners.size());
    std::size_t corner = 0;
    for (std::size_t face = 0; face < mesh.face_count(); ++face) {
      std::optional<std::uint32_t> of_face;
      for (std::uint32_t point : mesh.face(face)) {
        std::uint32_t normal = number_of_corner(mesh, corner++);
        if (normal == none) {
          if (!of_face) of_face = number_of(mesh.face_normal(face));
          normal = *of_face;
        }
        result->corners.push_back(vertex_for(point, normal));
      }
    }
    return result;
  }

  // Call after all meshes are split.
  void finish() {
    for (std::size_t i = 0; i < from_.points.size(); ++i) {
      if (normal_of_point_[i] == none) made_->normals[i] = from_.normals.empty() ? any_direction : from_.normals[i];
    }
  }

 private:
  // None for the null vector.
  std::uint32_t number_of(const annVector& normal) {
    if (normal == annVector{}) return none;
    const std::uint32_t number = numbers_.number_of(rounded(normal));
    if (number == normals_.size()) normals_.push_back(normal);
    return number;
  }

  std::uint32_t number_of_corner(const annMesh& mesh, std::size_t corner) {
    const annVector* const normal = mesh.normal(corner);
    if (!normal) return none;
    if (mesh.corner_normals.empty()) return number_of(*normal);
    std::uint32_t& known = number_in_pool_[mesh.corner_normals[corner]];
    if (known == none) known = number_of(*normal);
    return known;
  }

  std::uint32_t vertex_for(std::uint32_t point, std::uint32_t normal) {
    std::uint32_t& first = normal_of_point_[point];
    if (normal == none || normal == first) return point;
    if (first == none) {
      first = normal;
      made_->normals[point] = normals_[normal];
      return point;
    }
    const std::uint32_t vertex =
        from_.count() + copies_.number_of({static_cast<double>(point), static_cast<double>(normal), 0});
    if (vertex == made_->count()) {
      made_->points.push_back(from_.points[point]);
      made_->normals.push_back(normals_[normal]);
      if (!from_.colours.empty()) made_->colours.push_back(from_.colours[point]);
    }
    return vertex;
  }

  const annVertices& from_;
  std::shared_ptr<annVertices> made_ = std::make_shared<annVertices>();
  std::vector<annVector> normals_;              // the distinct normals
  std::vector<std::uint32_t> normal_of_point_;  // for each point the number of its first normal
  std::vector<std::uint32_t> number_in_pool_;
  std::vector<annVector> rounded_normals_, point_and_normal_;
  annWelder numbers_, copies_;  // hash tables over the two arrays above
};

}  // namespace

void ann_split_vertices(std::vector<std::shared_ptr<const annMesh>>& meshes, annBareMeshes bare) {
  auto asks = [&](const annMesh& mesh) {
    if (!mesh.has_normals()) return bare == annBARE_GET_FACE_NORMALS && mesh.face_count() > 0;
    return !mesh.corner_normals.empty();
  };
  std::unordered_map<const annVertices*, Splitting> splittings;
  for (const auto& mesh : meshes) {
    if (asks(*mesh)) splittings.try_emplace(mesh->vertices.get(), *mesh->vertices);
  }
  std::unordered_map<const annMesh*, std::shared_ptr<const annMesh>> known;
  std::vector<std::shared_ptr<const annMesh>> result;
  for (const auto& mesh : meshes) {
    const auto splitting = splittings.find(mesh->vertices.get());
    const bool stays = splitting == splittings.end() || !(mesh->has_normals() || asks(*mesh));
    std::shared_ptr<const annMesh>& made = known[mesh.get()];
    if (!made) made = stays ? mesh : splitting->second.split(*mesh);
    result.push_back(made);
  }
  for (auto& [vertices, splitting] : splittings) splitting.finish();
  meshes = std::move(result);
}
