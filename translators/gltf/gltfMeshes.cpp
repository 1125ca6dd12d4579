#include "gltfMeshes.h"

#include <algorithm>
#include <numeric>

namespace {

const gltfElements indices_expected{"indices", {1}, {gltfUINT8, gltfUINT16, gltfUINT32}};

}  // namespace

const gltfMeshes::Mesh* gltfMeshes::find(std::size_t index) {
  std::optional<Mesh>& known = meshes_[index];
  if (known) return &*known;
  Mesh mesh;
  if (!read(model_.item(gltfMESHES, index), mesh)) return nullptr;
  const double share = static_cast<double>(++meshes_read_) / static_cast<double>(meshes_.size());
  if (!work_.goes_on(share)) return nullptr;
  return &known.emplace(std::move(mesh));
}

bool gltfMeshes::read(const gltfValue& value, Mesh& mesh) {
  constexpr const char* key = "primitives";
  const gltfValue::Array* primitives = nullptr;
  if (!value.read("name", mesh.name) || !value.read(key, primitives)) return false;
  if (!primitives) return value.fail("its primitives are missing");
  Parts parts;
  for (std::size_t i = 0; i < primitives->size(); ++i) {
    std::optional<gltfValue> primitive;
    if (!value.element(key, *primitives, i, primitive) || !read_primitive(*primitive, parts)) return false;
  }
  if (parts.primitives.empty()) return true;

  const gltfVertexPool* pool = find_vertices(parts);
  if (!pool) return false;
  auto made = std::make_shared<annMesh>();
  made->vertices = pool->vertices;
  for (std::size_t material : parts.materials.all()) {
    made->materials.push_back(materials_.find(material)->look);
  }
  for (const Primitive& primitive : parts.primitives) {
    if (!add_triangles(primitive, *pool, *made)) return false;
  }
  if (!made->corners.empty()) mesh.mesh = std::move(made);
  return true;
}

const gltfVertexPool* gltfMeshes::find_vertices(Parts& parts) {
  std::vector<Primitive>& primitives = parts.primitives;
  const bool have_colours = std::any_of(primitives.begin(), primitives.end(), [](const Primitive& primitive) {
    return primitive.attributes.colours != gltfAttributes::none;
  });
  const bool have_looks = std::all_of(primitives.begin(), primitives.end(), [](const Primitive& primitive) {
    return primitive.material != annMesh::no_material;
  });
  for (Primitive& primitive : primitives) {
    if (!have_colours) primitive.attributes.base = {};
    primitive.set = parts.sets.number_of(primitive.attributes);
  }
  return pools_.find(parts.sets.all(), have_colours && have_looks);
}

bool gltfMeshes::read_primitive(const gltfValue& value, Parts& parts) {
  Primitive primitive{value};
  if (!value.read("mode", primitive.mode)) return false;
  if (primitive.mode > gltfTRIANGLE_FAN) {
    return value.fail("mode", std::to_string(primitive.mode) + " stands for no kind of primitives");
  }
  if (primitive.mode < gltfTRIANGLES) {
    findings_.count(velabsNOTE, "points and lines are left out");
    return true;
  }
  if (!read_attributes(value, primitive.attributes)) return false;
  if (primitive.attributes.positions == gltfAttributes::none) {
    findings_.count(velabsWARNING, "primitives without positions are left out");
    return true;
  }
  if (value.has("targets")) findings_.count(velabsNOTE, "morph targets are left out");
  if (!model_.refer(value, "indices", gltfACCESSORS, primitive.indices) || !read_material(parts, primitive)) {
    return false;
  }
  parts.primitives.push_back(std::move(primitive));
  return true;
}

bool gltfMeshes::read_attributes(const gltfValue& value, gltfAttributes& attributes) {
  std::optional<gltfValue> object;
  if (!value.read("attributes", object)) return false;
  if (!object) return value.fail("its attributes are missing");
  const std::pair<const char*, std::size_t*> wanted[] = {
      {"POSITION", &attributes.positions}, {"NORMAL", &attributes.normals}, {"COLOR_0", &attributes.colours}};
  for (const auto& [key, number] : wanted) {
    std::optional<std::size_t> accessor;
    if (!model_.refer(*object, key, gltfACCESSORS, accessor)) return false;
    if (accessor) *number = *accessor;
  }
  if (object->has("TEXCOORD_0")) findings_.count(velabsNOTE, "texture coordinates are left out");
  if (object->has("COLOR_1")) findings_.count(velabsNOTE, "of several colours of a vertex only the first is read");
  return true;
}

bool gltfMeshes::read_material(Parts& parts, Primitive& primitive) {
  std::optional<std::size_t> material;
  if (!model_.refer(primitive.value, "material", gltfMATERIALS, material)) return false;
  if (!material) return true;
  gltfAttributes& attributes = primitive.attributes;
  const bool has_colours = attributes.colours != gltfAttributes::none;
  std::string_view type;
  if (has_colours && !model_.item(gltfACCESSORS, attributes.colours).read("type", type)) return false;
  gltfBase base;
  if (with_looks_) {
    const gltfMaterial* known = materials_.find(*material);
    if (!known) return false;
    base = known->base;
    // A material that is only double-sided was written for a body that is not closed, and is ignored.
    const bool is_look = known->is_look || (!has_colours && !known->double_sided);
    if (is_look) {
      primitive.material = static_cast<std::uint32_t>(parts.materials.number_of(*material));
    }
  } else if (has_colours) {
    const std::optional<gltfAlpha> alpha = materials_.alpha(*material);
    if (!alpha) return false;
    base.alpha = *alpha;
  }
  attributes.base = base.of_vertices(type == "VEC4");
  return true;
}

bool gltfMeshes::add_triangles(const Primitive& primitive, const gltfVertexPool& pool, annMesh& mesh) {
  const std::size_t start = pool.starts[primitive.set];
  if (!read_indices(primitive, pool.starts[primitive.set + 1] - start)) return false;

  const std::size_t count = indices_.size();
  const bool separate = primitive.mode == gltfTRIANGLES;
  if (separate ? count % 3 != 0 : count == 1 || count == 2) {
    return primitive.value.fail(std::to_string(count) + " corners are no whole number of triangles");
  }
  const std::size_t triangles = separate ? count / 3 : std::max<std::size_t>(count, 2) - 2;
  if (!work_.allows(3 * triangles)) {
    return primitive.value.fail(std::to_string(triangles) +
                                " triangles are more than a file of this size can hold: it names its bytes too often");
  }
  const std::size_t first_corner = mesh.corners.size();
  if (separate) {
    mesh.corners.insert(mesh.corners.end(), indices_.begin(), indices_.end());
  } else {
    for (std::size_t i = 0; i < triangles; ++i) {
      // In a strip, every other triangle has the opposite orientation. In a fan, all triangles have the first corner.
      const bool strip = primitive.mode == gltfTRIANGLE_STRIP;
      const std::size_t odd = i % 2;
      const std::size_t a = strip ? i : i + 1, b = strip ? i + 1 + odd : i + 2, c = strip ? i + 2 - odd : 0;
      mesh.corners.insert(mesh.corners.end(), {indices_[a], indices_[b], indices_[c]});
    }
  }
  const auto offset = static_cast<std::uint32_t>(start);
  for (std::size_t i = first_corner; i < mesh.corners.size(); ++i) {
    std::uint32_t& corner = mesh.corners[i];
    const std::uint32_t vertex = offset + corner;
    corner = pool.welded.empty() ? vertex : pool.welded[vertex];
    if (!pool.welded_normals.empty()) mesh.corner_normals.push_back(pool.welded_normals[vertex]);
  }
  if (!mesh.materials.empty()) mesh.face_materials.resize(mesh.corners.size() / 3, primitive.material);
  return true;
}

bool gltfMeshes::read_indices(const Primitive& primitive, std::size_t vertex_count) {
  if (!primitive.indices) {
    indices_.resize(vertex_count);
    std::iota(indices_.begin(), indices_.end(), 0U);
    return true;
  }
  gltfAccessor accessor;
  if (!accessors_.find(*primitive.indices, indices_expected, accessor)) return false;
  if (!work_.allows(accessor.data ? 0 : accessor.count)) return accessors_.fail(accessor, "it has too many elements");
  indices_.resize(accessor.count);
  // The maximum of a type would restart the strip, which glTF does not allow.
  std::uint32_t restart = 0;
  const bool done = gltf_with_type(accessor.type, [&]<typename T>(T) {
    restart = static_cast<std::uint32_t>(std::numeric_limits<T>::max());
    return gltf_for_each_element(accessor, work_, [&](std::size_t i, const char* element) {
      indices_[i] = static_cast<std::uint32_t>(gltf_load<T>(element));
      return true;
    });
  });
  if (!done) return false;
  const auto wrong = std::find_if(indices_.begin(), indices_.end(),
                                  [&](std::uint32_t index) { return index >= vertex_count || index == restart; });
  if (wrong == indices_.end()) return true;
  return primitive.value.fail(
      "indices", "index " + std::to_string(*wrong) + " at " + std::to_string(wrong - indices_.begin()) +
                     (*wrong == restart ? " is no number of a vertex"
                                        : " is out of range: there are " + std::to_string(vertex_count) + " vertices"));
}
