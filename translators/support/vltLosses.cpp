#include "vltLosses.h"

#include <algorithm>

#include "vltFlag.h"
#include "vltScale.h"
#include "vltVertexLists.h"

namespace {

bool any_vertex_is_seen_through(const std::vector<vltPlacedMesh>& bodies) {
  const vltVertexLists lists(bodies);
  return std::any_of(lists.all().begin(), lists.all().end(), [](const vltVertexList& list) {
    const std::vector<annColour>& colours = list.vertices->colours;
    return std::any_of(colours.begin(), colours.end(), [](const annColour& c) { return c.opacity != 1; });
  });
}

bool any_name_above_a_body(const annDocument& document) {
  struct Open {
    const annNode* node;
    bool below_a_name;
  };
  std::vector<Open> open;
  for (const auto& top : document.root.children) open.push_back({top.get(), false});
  while (!open.empty()) {
    const auto [node, below_a_name] = open.back();
    open.pop_back();
    if (below_a_name && !node->body.empty()) return true;
    for (const auto& child : node->children) open.push_back({child.get(), below_a_name || !node->label().empty()});
  }
  return false;
}

}  // namespace

void vlt_tell_losses(const annDocument& document, const std::vector<vltPlacedMesh>& bodies, const vltCarries& carries,
                     const velTableInstance& resources, velabsOutput& output) {
  auto note = [&](bool lost, const utString& what) {
    if (lost) output.message(velabsNOTE, utString(carries.format) + " " + what);
  };
  auto any_body = [&](auto test) { return std::any_of(bodies.begin(), bodies.end(), test); };
  auto any_material = [&](auto test) {
    return any_body([&](const vltPlacedMesh& body) {
      return std::any_of(body.mesh->materials.begin(), body.mesh->materials.end(), test);
    });
  };
  auto has_colour = [](const vltPlacedMesh& body) { return body.colour || !body.mesh->face_materials.empty(); };
  auto is_seen_through = [](const vltPlacedMesh& body) { return body.colour && body.colour->opacity != 1; };
  auto tell_lost_looks = [&] {
    if (!carries.colours) return note(any_body(has_colour), "holds no colours in this form: they are not written");
    note(!carries.opacity && (any_body(is_seen_through) ||
                              any_material([](const annMaterial& look) { return look.colour.opacity != 1; })),
         "holds no opacity of colours: it is left out");
    note(!carries.material_names && any_material([](const annMaterial& look) { return !look.name.empty(); }),
         "holds no names of materials: their colours are written without");
  };

  const auto without_faces = std::count_if(bodies.begin(), bodies.end(),
                                           [](const vltPlacedMesh& body) { return body.mesh->face_count() == 0; });
  note(carries.faces_only && without_faces > 0,
       "holds faces only: " + std::to_string(without_faces) +
           (without_faces == 1 ? " part of vertices is left out" : " parts of vertices are left out"));
  note(any_body([](const vltPlacedMesh& body) { return body.node->body.shape != nullptr; }),
       "holds no exact shapes: their facets are written");
  note(!carries.polygons && any_body([](const vltPlacedMesh& body) { return !body.mesh->all_triangles(); }),
       "holds triangles only: faces of more corners are split");
  const auto& top = document.root.children;
  const bool deep = std::any_of(top.begin(), top.end(), [](const auto& node) { return !node->children.empty(); });
  note(!carries.parts && bodies.size() > 1,
       "holds one body: the " + std::to_string(bodies.size()) + " parts are written as one, without their names");
  const bool flattens = carries.parts && !carries.tree;
  note(flattens && deep && bodies.size() > 1, "holds no assemblies: the parts are written side by side");
  note(flattens && bodies.size() == 1 && any_name_above_a_body(document),
       "holds no assemblies: the part is written without the names of those that it stands in");
  if (vlt_flag(resources, "WRITE_MATERIALS")) tell_lost_looks();
  note(!carries.vertex_normals &&
           any_body([](const vltPlacedMesh& body) { return !body.node->body.shape && body.mesh->has_normals(); }),
       "holds no vertex normals: they are left out");
  note(!carries.vertex_colours &&
           any_body([](const vltPlacedMesh& body) { return !body.mesh->vertices->colours.empty(); }),
       "holds no vertex colours: they are left out");
  const bool opaque_vertices =
      carries.vertex_colours && !carries.vertex_opacity && vlt_flag(resources, "WRITE_VERTEX_COLOURS");
  note(opaque_vertices && any_vertex_is_seen_through(bodies), "holds no opacity of vertex colours: it is left out");
}

void vlt_tell_losses(const annDocument& document, const vltWrittenMeshes& meshes, const vltCarries& carries,
                     const velTableInstance& resources, velabsOutput& output) {
  vlt_tell_losses(document, meshes.bodies, carries, resources, output);
  vlt_note_unit(carries.format, meshes.unit, document, output);
}
