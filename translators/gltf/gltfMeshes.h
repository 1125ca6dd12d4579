#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "annMesh.h"
#include "gltfMaterials.h"
#include "gltfVertexPools.h"

// The meshes of a file, each read when a node first uses it. The primitives of a mesh become one `annMesh`; a face has
// the material of its primitive.
class gltfMeshes {
 public:
  // Without `with_looks`, faces get no materials.
  gltfMeshes(const gltfModel& model, gltfAccessors& accessors, gltfVertexPools& pools, gltfMaterials& materials,
             bool with_looks, gltfWork& work, vltOnce& findings)
      : model_(model),
        accessors_(accessors),
        pools_(pools),
        materials_(materials),
        with_looks_(with_looks),
        work_(work),
        findings_(findings),
        meshes_(model.count(gltfMESHES)) {}

  struct Mesh {
    std::shared_ptr<const annMesh> mesh;  // null when the file's mesh has no triangles
    std::string_view name;
  };

  // The result lives as long as this object. Null when the mesh is invalid, with a message, or when the work is
  // cancelled.
  const Mesh* find(std::size_t index);

 private:
  struct Primitive {
    gltfValue value;
    std::size_t mode = gltfTRIANGLES;
    gltfAttributes attributes{};
    std::size_t set = 0;  // the index of its attributes in `sets`
    std::optional<std::size_t> indices{};
    std::uint32_t material = annMesh::no_material;
  };
  // Distinct values, numbered in the order of their first use.
  template <typename Value>
  class Numbered {
   public:
    std::size_t number_of(const Value& value) {
      const auto [known, is_new] = numbers_.try_emplace(value, values_.size());
      if (is_new) values_.push_back(value);
      return known->second;
    }
    const std::vector<Value>& all() const { return values_; }

   private:
    std::vector<Value> values_;
    std::map<Value, std::size_t> numbers_;
  };
  struct Parts {
    std::vector<Primitive> primitives;
    Numbered<gltfAttributes> sets;
    Numbered<std::size_t> materials;  // indices in the file
  };

  bool read(const gltfValue& value, Mesh& mesh);
  bool read_primitive(const gltfValue& value, Parts& parts);
  bool read_attributes(const gltfValue& value, gltfAttributes& attributes);
  bool read_material(Parts& parts, Primitive& primitive);
  const gltfVertexPool* find_vertices(Parts& parts);
  bool add_triangles(const Primitive& primitive, const gltfVertexPool& pool, annMesh& mesh);
  bool read_indices(const Primitive& primitive, std::size_t vertex_count);

  const gltfModel& model_;
  gltfAccessors& accessors_;
  gltfVertexPools& pools_;
  gltfMaterials& materials_;
  bool with_looks_;
  gltfWork& work_;
  vltOnce& findings_;
  std::vector<std::optional<Mesh>> meshes_;
  std::size_t meshes_read_ = 0;
  std::vector<std::uint32_t> indices_;  // of the current primitive
};
