#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <tuple>
#include <vector>

#include "annDocument.h"
#include "gltfFormat.h"
#include "velTableInstance.h"
#include "velabsOutput.h"
#include "vltFacets.h"
#include "vltPlacedMesh.h"

// The content of a file, with all indices and sizes. It is computed before writing, because GLB starts with its length
// and the JSON has the offsets. Refers to the document, which must outlive it.
struct gltfPlan {
  struct Node {
    const annNode* node;  // null for the node that rotates the model
    annTransform placement;
    std::optional<std::size_t> mesh;
    std::vector<std::size_t> children;
  };
  // Numbers in the binary data; each accessor has a separate view.
  struct Accessor {
    std::size_t offset = 0;
    std::size_t count = 0;
    std::size_t components = 1;
    gltfComponentType type = gltfFLOAT;
    std::optional<std::array<std::array<float, 3>, 2>> range{};  // of positions

    std::size_t size() const;  // in bytes
  };
  // Vertices, written once for all meshes that share them.
  struct Pool {
    const annVertices* vertices;
    std::size_t positions = 0;  // accessor indices
    std::optional<std::size_t> normals{};
    std::optional<std::size_t> colours{};
  };
  // A material: name and colour, whether it blends (also for vertex opacity), and whether it is double-sided.
  struct Material {
    std::optional<annMaterial> look;
    bool blends = false;
    bool double_sided = false;
  };
  // The faces of a mesh that have the same material.
  struct Group {
    std::optional<std::size_t> material;
    std::size_t indices = 0;  // accessor index
  };
  struct Mesh {
    std::shared_ptr<const annMesh> mesh;
    std::optional<utString> name;  // of the part; empty when its nodes have different part names
    std::size_t pool;
    bool first_of_pool;  // the pool's data is written before that of this mesh
    std::vector<Group> groups;
    std::vector<std::size_t> group_of_material;  // by material; the last one for faces without
  };

  double factor = 1;
  std::vector<std::size_t> roots;
  std::vector<Node> nodes;
  std::vector<Mesh> meshes;
  std::vector<Pool> pools;
  std::vector<Material> materials;
  std::vector<Accessor> accessors;
  std::size_t data_size = 0;
};

// Makes the plan for a document and reports what is lost. The document and the resources must outlive the planner. A
// mesh without faces cannot be written: its node is empty. Vertices at hard edges are split, because a glTF vertex has
// one normal.
//
// A node has the name of its instance, its mesh that of the part. Faces of bodies that are not closed are
// double-sided, so a material of both closed and open bodies becomes two.
class gltfPlanner {
 public:
  gltfPlanner(const annDocument& document, const velTableInstance& resources, velabsOutput& output);

  // Empty, with a message, when the document cannot be written.
  std::optional<gltfPlan> plan(double factor);

 private:
  // A mesh and the colour of its faces without a material: a mesh with two part colours becomes two meshes.
  using Look = std::tuple<const annMesh*, std::optional<std::array<float, 4>>>;

  bool split_vertices();
  bool add_node(const annNode& node, std::optional<std::size_t> parent, std::optional<annColour> colour);
  bool add_mesh(const std::shared_ptr<const annMesh>& mesh, std::optional<annColour> colour, std::size_t& index);
  void add_groups(gltfPlan::Mesh& planned, const std::optional<annColour>& colour, bool double_sided);
  bool is_open(const annMesh& mesh);
  bool add_pool(const annVertices& vertices, std::size_t& index);
  bool add_positions(const annVertices& vertices, std::size_t& index);
  std::size_t add_accessor(std::size_t count, std::size_t components, gltfComponentType type);
  std::size_t material_number(const std::optional<annMaterial>& look, bool blends, bool double_sided);
  bool has_faces_without_look(const annMesh& mesh);
  bool fail(const utString& reason);

  const annDocument& document_;
  const velTableInstance& resources_;
  velabsOutput& output_;
  vltFacets facets_;
  bool materials_, normals_, colours_;
  gltfPlan plan_;
  std::vector<vltPlacedMesh> bodies_;
  std::map<const annMesh*, std::shared_ptr<const annMesh>> split_;
  std::map<Look, std::size_t> meshes_;
  std::map<const annVertices*, std::size_t> pools_;
  std::map<const annMesh*, bool> without_look_, open_;
  using LookKey = std::optional<std::tuple<std::string, std::array<float, 4>>>;
  std::map<std::tuple<LookKey, bool, bool>, std::size_t> material_numbers_;
  std::size_t without_faces_ = 0;
  bool hides_names_ = false;  // names of instances replaced names of assemblies
  bool hides_looks_ = false;  // vertex colours replaced material colours
};
