#include "plyContent.h"

plyContent::plyContent(const vltOneMesh& one_mesh)
    : mesh(one_mesh),
      doubles(!mesh.floats_suffice()),
      normals(mesh.normals()),
      vertex_colours(!mesh.vertex_colours()            ? Colours::none
                     : mesh.vertex_colours_are_bytes() ? Colours::bytes
                                                       : Colours::floats),
      face_colours(mesh.face_colours()),
      wide_lists(mesh.largest_face() > 255) {}

std::string plyContent::head(std::string_view form) const {
  std::string text = "ply\nformat " + std::string(form) + " 1.0\n";
  auto add = [&](const std::string& type, std::initializer_list<const char*> names) {
    for (const char* name : names) text += "property " + type + " " + name + "\n";
  };
  text += "element vertex " + std::to_string(mesh.lists().vertex_count()) + "\n";
  add(doubles ? "double" : "float", {"x", "y", "z"});
  if (normals) add("float", {"nx", "ny", "nz"});
  if (vertex_colours != Colours::none) {
    add(vertex_colours == Colours::bytes ? "uchar" : "float", {"red", "green", "blue", "alpha"});
  }
  text += "element face " + std::to_string(mesh.face_count()) + "\n";
  add(wide_lists ? "list uint int" : "list uchar int", {"vertex_indices"});
  if (face_colours) add("uchar", {"red", "green", "blue", "alpha"});
  return text + "end_header\n";
}

plyFaceColours::plyFaceColours(const vltPlacedMesh& body) : mesh_(*body.mesh) {
  if (body.colour) plain_ = vlt_bytes_of(*body.colour);
  for (const annMaterial& material : mesh_.materials) materials_.push_back(vlt_bytes_of(material.colour));
}
