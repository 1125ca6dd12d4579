#include "objMeshWriter.h"

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
  std::string name = vlt_name_for_line(body.node->name);
  if (name.empty()) name = "body_" + std::to_string(number + 1);
  name = names_.unique(std::move(name));
  renames_.take(body.node->name.view(), name);
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
  const bool has_normals = with_normals_ && !vertices.normals.empty();
  written_.push_back({lists_.of(number).first + 1, has_normals ? next_normal_ : 0});
  if (!points(body)) return nullptr;
  if (has_normals) {
    normals(body);
    next_normal_ += vertices.normals.size();
  }
  return &written_.back();
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

void objMeshWriter::normals(const vltPlacedMesh& body) {
  const bool identity = body.placement.is_identity();
  for (const annVector& own : body.mesh->vertices->normals) {
    const annVector n = identity ? own : body.placement.normal(own);
    text_.text("vn");
    numbers(std::array{n.x, n.y, n.z});
    text_.text("\n");
  }
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
    text_.text("f");
    corner(corners[0], at);
    for (std::size_t i = 1; i < corners.size(); ++i) corner(corners[mirrors ? corners.size() - i : i], at);
    text_.text("\n");
    if (!progress_.reached(++done_) || !stream_.good()) return false;
  }
  return true;
}

void objMeshWriter::corner(std::uint32_t vertex, const Written& at) {
  text_.text(" ");
  text_.number(at.first_vertex + vertex);
  if (at.first_normal == 0) return;
  text_.text("//");
  text_.number(at.first_normal + vertex);
}

void objMeshWriter::numbers(std::span<const double> values) {
  for (double value : values) {
    text_.text(" ");
    text_.number(value);
  }
}
