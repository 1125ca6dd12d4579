#include "objMeshWriter.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "vltFlag.h"

objMeshWriter::objMeshWriter(velabsOfStream& stream, const velTableInstance& resources, int digits, objLooks* looks,
                             const vltVertexLists& lists, vltProgress& progress, velabsOutput& output)
    : stream_(stream),
      output_(output),
      text_(stream, digits),
      looks_(looks),
      progress_(progress),
      with_normals_(vlt_flag(resources, "WRITE_NORMALS")),
      with_colours_(vlt_flag(resources, "WRITE_VERTEX_COLOURS")),
      lists_(lists) {}

bool objMeshWriter::write(const vltPlacedMesh& body, std::size_t number) {
  std::string name = vlt_name_for_line(body.node->label());
  if (name.empty()) name = "body_" + std::to_string(number + 1);
  name = names_.unique(std::move(name));
  renames_.take(body.node->label().view(), name);
  text_.text("o ");
  text_.text(name);
  text_.text("\n");
  const Written* at = written(body, number);
  return at && faces(body, *at);
}

const objMeshWriter::Written* objMeshWriter::written(const vltPlacedMesh& body, std::size_t number) {
  const annVertices& vertices = *body.mesh->vertices;
  const std::size_t list = lists_.number_of(number);
  if (list < written_.size()) return &written_[list];
  Written& now = written_.emplace_back(Written{lists_.of(number).first + 1, 0, 0});
  if (!points(body)) return nullptr;
  if (with_normals_) {
    now.first_normal = normals(vertices.normals, body.placement);
    now.first_in_pool = normals(vertices.normal_pool, body.placement);
  }
  return &now;
}

bool objMeshWriter::points(const vltPlacedMesh& body) {
  const annVertices& vertices = *body.mesh->vertices;
  const bool identity = body.placement.is_identity();
  const bool colours = with_colours_ && !vertices.colours.empty();
  for (std::size_t i = 0; i < vertices.points.size(); ++i) {
    const annVector p = identity ? vertices.points[i] : body.placement.point(vertices.points[i]);
    if (!std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.z)) {
      output_.message(velabsERROR, "a coordinate is too large for a number once it is placed and scaled");
      return false;
    }
    text_.text("v");
    numbers(std::array{p.x, p.y, p.z});
    if (colours) {
      const annColour& c = vertices.colours[i];
      for (float value : {c.red, c.green, c.blue}) {
        text_.text(" ");
        text_.number(value);
      }
    }
    text_.text("\n");
    if (!progress_.reached(++done_) || !stream_.good()) return false;
  }
  return true;
}

std::size_t objMeshWriter::normals(const std::vector<annVector>& normals, const annTransform& placement) {
  if (normals.empty()) return 0;
  const std::size_t first = next_normal_;
  for (const annVector& own : normals) normal(own, placement);
  return first;
}

void objMeshWriter::normal(annVector own, const annTransform& placement) {
  const annVector n = placement.is_identity() ? own : placement.normal(own);
  text_.text("vn");
  numbers(std::array{n.x, n.y, n.z});
  text_.text("\n");
  ++next_normal_;
}

bool objMeshWriter::faces(const vltPlacedMesh& body, const Written& at) {
  const bool mirrors = body.placement.mirrors();
  const annMesh& mesh = *body.mesh;
  const bool alike = mesh.face_materials.empty();
  for (std::size_t face = 0; face < mesh.face_count(); ++face) {
    if (looks_ && (face == 0 || !alike)) {
      const std::string& name = looks_->name_for(body, face);
      if (name != material_) {
        text_.text("usemtl ");
        text_.text(name);
        text_.text("\n");
        material_ = name;
      }
    }
    const auto corners = mesh.face(face);
    find_normals(body, face, at);
    text_.text("f");
    for (std::size_t i = 0; i < corners.size(); ++i) {
      const std::size_t corner = mirrors && i > 0 ? corners.size() - i : i;
      text_.text(" ");
      text_.number(at.first_vertex + corners[corner]);
      if (face_normals_.empty()) continue;
      text_.text("//");
      text_.number(face_normals_[corner]);
    }
    text_.text("\n");
    if (!progress_.reached(++done_) || !stream_.good()) return false;
  }
  return true;
}

void objMeshWriter::find_normals(const vltPlacedMesh& body, std::size_t face, const Written& at) {
  const annMesh& mesh = *body.mesh;
  face_normals_.clear();
  if (!with_normals_ || !mesh.has_normals()) return;
  const auto corners = mesh.face(face);
  if (mesh.corner_normals.empty()) {
    for (std::uint32_t vertex : corners) face_normals_.push_back(at.first_normal + vertex);
    return;
  }
  const std::uint32_t* const indices = mesh.corner_normals.data() + (corners.data() - mesh.corners.data());
  const auto bare = std::count(indices, indices + corners.size(), annMesh::no_normal);
  if (bare == std::ssize(corners)) return;
  const std::size_t of_face = next_normal_;
  if (bare > 0) {
    const annVector face_normal = mesh.face_normal(face);
    if (face_normal == annVector{}) return;
    normal(face_normal, body.placement);
  }
  for (std::size_t i = 0; i < corners.size(); ++i) {
    face_normals_.push_back(indices[i] == annMesh::no_normal ? of_face : at.first_in_pool + indices[i]);
  }
}

void objMeshWriter::numbers(std::span<const double> values) {
  for (double value : values) {
    text_.text(" ");
    text_.number(value);
  }
}
