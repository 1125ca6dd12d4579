#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "annDocument.h"
#include "threemfColours.h"
#include "threemfJoinedMesh.h"
#include "vltPlacedMesh.h"

// An instance of an object: its id, its placement and its name, which may be empty.
struct threemfPlacedObject {
  std::uint32_t id;
  annTransform transform;
  std::string_view instance_name;
};

struct threemfMeshObject {
  std::uint32_t id;
  const annMesh* mesh;
  const threemfJoinedMesh* joined;  // as it is written
  bool turned;                      // every x changes its sign, and the corners are in reverse order
  std::optional<annColour> colour;
  const utString* name;
};

struct threemfAssemblyObject {
  std::uint32_t id;
  const utString* name;
  std::vector<threemfPlacedObject> components;
};

// The objects and the build that represent a document's tree. A mesh becomes one object for each colour of its
// instances. Nodes with children become objects with components; so do the names of nodes that share a mesh under
// different names. 3MF should not contain mirrored placements, so the mesh is mirrored instead and no written
// placement mirrors. Nodes without triangles and flattened nodes are skipped and counted.
class threemfObjects {
 public:
  // `whole` is the placement of the document.
  threemfObjects(const annDocument& document, const annTransform& whole, const std::vector<vltPlacedMesh>& bodies,
                 const threemfJoinedMeshes& joined, threemfColours& colours);

  const std::vector<threemfMeshObject>& meshes() const { return meshes_; }
  // Each after the objects that it is made of.
  const std::vector<threemfAssemblyObject>& assemblies() const { return assemblies_; }
  const std::vector<threemfPlacedObject>& items() const { return items_; }

  bool has_instance_names() const { return has_instance_names_; }

  std::size_t empty_count() const { return empty_; }
  std::size_t flattened_count() const { return flattened_; }

 private:
  struct Entry;
  using Bodies = std::unordered_map<const annNode*, const vltPlacedMesh*>;

  void list(const annNode& root, const annTransform& placement, const Bodies& bodies, std::vector<Entry>& entries);
  std::size_t mesh_object(const Entry& entry, threemfColours& colours);
  void number(std::vector<Entry>& entries);
  void name_mesh(Entry& entry);

  const threemfJoinedMeshes& joined_;
  std::vector<threemfMeshObject> meshes_;
  std::vector<bool> several_names_;
  std::map<std::pair<const annMesh*, std::uint64_t>, std::size_t> mesh_numbers_;  // never iterated
  std::map<std::pair<std::size_t, std::string_view>, std::uint32_t> names_of_meshes_;
  std::vector<threemfAssemblyObject> assemblies_;
  std::vector<threemfPlacedObject> items_;
  std::uint32_t next_id_ = threemfColours::first_free_id;
  bool has_instance_names_ = false;
  std::size_t empty_ = 0;
  std::size_t flattened_ = 0;
};
