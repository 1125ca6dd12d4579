#include "hpfThings.h"

#include "annStoredShape.h"
#include "apNumberChecks.h"
#include "hpfNames.h"
#include "vltNormals.h"

namespace {

constexpr std::uint64_t most_numbers = annMesh::no_material;

std::span<const double> numbers_of(std::span<const annVector> vectors) {
  static_assert(sizeof(annVector) == 3 * sizeof(double));
  return {reinterpret_cast<const double*>(vectors.data()), 3 * vectors.size()};
}

std::span<const float> numbers_of(std::span<const annColour> colours) {
  static_assert(sizeof(annColour) == 4 * sizeof(float));
  return {reinterpret_cast<const float*>(colours.data()), 4 * colours.size()};
}

template <typename Element>
bool take_finite(hpfInput& input, std::vector<Element>& elements, std::uint64_t count, const char* what) {
  return input.array(elements, count, [&](std::span<const Element> block) {
    return ap_all_finite(numbers_of(block)) || input.fail(std::string(what) + " is not of finite numbers");
  });
}

// Reads indices that must be less than `bound`.
bool take_numbers(hpfInput& input, std::vector<std::uint32_t>& numbers, std::uint64_t count, std::uint64_t bound,
                  const char* what) {
  if (count > 0 && bound == 0) return input.fail(std::string(what) + " that is not there");
  const auto most = static_cast<std::uint32_t>(bound - 1);
  return input.array(numbers, count, [&](std::span<const std::uint32_t> block) {
    return ap_all_at_most(block, most) || input.fail(std::string(what) + " that is not there");
  });
}

bool take_face_starts(hpfInput& input, annMesh& mesh, std::uint64_t count) {
  std::uint32_t last = 0;
  bool first = true;
  auto are_sound = [&](std::span<const std::uint32_t> starts) {
    for (std::uint32_t start : starts) {
      if (first ? start != 0 : start < last || start - last < 3) return false;
      last = start;
      first = false;
    }
    return true;
  };
  const char* const reason = "its faces do not fit its corners";
  if (!input.array(mesh.face_starts, count,
                   [&](std::span<const std::uint32_t> block) { return are_sound(block) || input.fail(reason); })) {
    return false;
  }
  const bool fits = count == 0 ? mesh.corners.size() % 3 == 0 : last == mesh.corners.size();
  return fits || input.fail(reason);
}

bool take_face_materials(hpfInput& input, annMesh& mesh, const hpfMeshHead& head) {
  if (head.face_materials == 0) return true;
  if (head.face_materials != mesh.face_count()) return input.fail("not every face has a material");
  return input.array(mesh.face_materials, head.face_materials, [&](std::span<const std::uint32_t> block) {
    for (std::uint32_t material : block) {
      if (material != annMesh::no_material && material >= head.materials) {
        return input.fail("a face names a material that is not there");
      }
    }
    return true;
  });
}

bool take_materials(hpfInput& input, annMesh& mesh, const hpfMeshHead& head) {
  std::vector<hpfMaterial> records;
  std::string names;
  auto are_finite = [&](std::span<const hpfMaterial> block) {
    for (const hpfMaterial& record : block) {
      if (!ap_all_finite(record.colour)) return input.fail("the colour of a material is not of finite numbers");
    }
    return true;
  };
  if (!input.array(records, head.materials, are_finite) || !input.text(names, head.name_bytes)) return false;
  hpfNames rest(names);
  mesh.materials.reserve(records.size());
  for (const hpfMaterial& record : records) {
    const auto& [red, green, blue, opacity] = record.colour;
    annMaterial& material = mesh.materials.emplace_back(annMaterial{{}, {red, green, blue, opacity}});
    if (!rest.take(record.name_length, material.name)) return input.fail("a name is longer than the names are");
  }
  return rest.empty() || input.fail("there is text behind its names");
}

// The object with this index from earlier chunks; null with an error.
template <typename Thing>
Thing* find(hpfInput& input, const std::vector<std::shared_ptr<Thing>>& things, std::uint64_t number,
            const char* what) {
  if (number < things.size()) return things[number].get();
  input.fail("it names " + std::string(what) + " " + std::to_string(number) + ", of which there are " +
             std::to_string(things.size()) + " before it");
  return nullptr;
}

}  // namespace

bool hpfThings::read_vertices(hpfInput& input) {
  hpfVerticesHead head;
  if (!input.record(head)) return false;
  auto fits = [&](std::uint64_t count) { return count == 0 || count == head.points; };
  if (head.points > most_numbers) return input.fail("it has more points than a mesh can number");
  if (!fits(head.normals)) return input.fail("not every vertex has a normal");
  if (!fits(head.colours)) return input.fail("not every vertex has a colour");
  auto vertices = std::make_shared<annVertices>();
  if (!take_finite(input, vertices->points, head.points, "a point") ||
      !take_finite(input, vertices->normals, head.normals, "a normal") ||
      !take_finite(input, vertices->colours, head.colours, "a vertex colour")) {
    return false;
  }
  vlt_normalise(vertices->normals);
  vertices_.push_back(std::move(vertices));
  return true;
}

bool hpfThings::read_normal_pool(hpfInput& input) {
  hpfPoolHead head;
  if (!input.record(head)) return false;
  annVertices* const vertices = find(input, vertices_, head.vertices, "vertices");
  if (!vertices) return false;
  if (!vertices->normal_pool.empty()) return input.fail("there is a second one for the same vertices");
  if (head.normals > most_numbers) return input.fail("it has more normals than corners can name");
  if (!take_finite(input, vertices->normal_pool, head.normals, "a normal")) return false;
  vlt_normalise(vertices->normal_pool);
  return true;
}

bool hpfThings::read_corner_normals(hpfInput& input) {
  hpfCornerNormalsHead head;
  if (!input.record(head)) return false;
  annMesh* const mesh = find(input, meshes_, head.mesh, "mesh");
  if (!mesh) return false;
  if (!mesh->corner_normals.empty()) return input.fail("there is a second one for the same mesh");
  if (head.corners != mesh->corners.size()) return input.fail("not every corner has an index of a normal");
  const std::size_t normals = mesh->vertices->normal_pool.size();
  return input.array(mesh->corner_normals, head.corners, [&](std::span<const std::uint32_t> block) {
    for (std::uint32_t index : block) {
      if (index != annMesh::no_normal && index >= normals) {
        return input.fail("a corner names a normal that is not there");
      }
    }
    return true;
  });
}

bool hpfThings::read_mesh(hpfInput& input) {
  hpfMeshHead head;
  if (!input.record(head)) return false;
  if (!find(input, vertices_, head.vertices, "vertices")) return false;
  if (head.corners > most_numbers) return input.fail("it has more corners than a mesh can number");
  auto mesh = std::make_shared<annMesh>();
  mesh->vertices = vertices_[head.vertices];
  if (!take_numbers(input, mesh->corners, head.corners, mesh->vertices->points.size(), "a face names a vertex") ||
      !take_face_starts(input, *mesh, head.face_starts) || !take_face_materials(input, *mesh, head) ||
      !take_materials(input, *mesh, head)) {
    return false;
  }
  meshes_.push_back(std::move(mesh));
  return true;
}

bool hpfThings::read_shape(hpfInput& input) {
  hpfShapeHead head;
  std::string kind;
  std::string bytes;
  if (!input.record(head) || !input.text(kind, head.kind_length) || !input.text(bytes, head.bytes)) return false;
  std::optional<annBox> box;
  if (head.has_box != 0) {
    if (!ap_all_finite(head.box)) return input.fail("its box is not of finite numbers");
    box = annBox{{head.box[0], head.box[1], head.box[2]}, {head.box[3], head.box[4], head.box[5]}};
  }
  const annShapeContent content{head.solids, head.faces};
  shapes_.push_back(std::make_shared<annStoredShape>(std::move(kind), std::move(bytes), content, box));
  return true;
}
