#include "offMeshWriter.h"

#include <algorithm>

namespace {

constexpr std::size_t progress_step = std::size_t{1} << 15;

}  // namespace

offMeshWriter::offMeshWriter(const vltOneMesh& mesh, int digits, velabsOfStream& stream, velabsOutput& output)
    : mesh_(mesh),
      stream_(stream),
      text_(stream, digits),
      progress_(output, mesh.lists().vertex_count() + mesh.face_count(), progress_step) {
  look_at_face_colours();
}

void offMeshWriter::look_at_face_colours() {
  auto look = [&](const annColour& colour) {
    face_bytes_ = face_bytes_ && vlt_is_of_bytes(colour);
    opaque_ = opaque_ && colour.opacity >= 1;
  };
  for (const vltPlacedMesh& body : mesh_.bodies()) {
    if (body.colour) look(*body.colour);
    for (const annMaterial& material : body.mesh->materials) look(material.colour);
  }
}

velabsResult offMeshWriter::write() {
  text_.text(mesh_.vertex_colours() ? mesh_.normals() ? "CNOFF\n" : "COFF\n" : mesh_.normals() ? "NOFF\n" : "OFF\n");
  text_.number(mesh_.lists().vertex_count());
  behind_blank(mesh_.face_count());
  text_.text(" 0\n");
  for (const vltVertexList& list : mesh_.lists().all()) {
    if (!vertices(list)) return cancelled_ ? velabsCANCELLED : velabsFAILED;
  }
  for (std::size_t body = 0; body < mesh_.bodies().size(); ++body) {
    if (!faces(body)) return cancelled_ ? velabsCANCELLED : velabsFAILED;
  }
  return velabsDONE;
}

bool offMeshWriter::vertices(const vltVertexList& list) {
  const annVertices& from = *list.vertices;
  const bool placed = !list.placement.is_identity();
  for (std::size_t i = 0; i < from.points.size(); ++i) {
    const annVector p = placed ? list.placement.point(from.points[i]) : from.points[i];
    text_.number(p.x);
    behind_blank(p.y);
    behind_blank(p.z);
    if (mesh_.normals()) {
      const annVector n = placed ? list.placement.normal(from.normals[i]) : from.normals[i];
      for (double value : {n.x, n.y, n.z}) behind_blank(static_cast<float>(value));
    }
    if (mesh_.vertex_colours()) {
      colour(mesh_.colours_of(list)[i], mesh_.vertex_colours_are_bytes(), 4);
    }
    text_.text("\n");
    if (!go_on()) return false;
  }
  return true;
}

bool offMeshWriter::faces(std::size_t number) {
  const vltPlacedMesh& body = mesh_.bodies()[number];
  const std::size_t first = mesh_.lists().of(number).first;
  const bool mirrors = body.placement.mirrors();
  for (std::size_t i = 0; i < body.mesh->face_count(); ++i) {
    const auto corners = body.mesh->face(i);
    const std::size_t size = corners.size();
    text_.number(size);
    for (std::size_t k = 0; k < size; ++k) behind_blank(first + corners[mirrors && k > 0 ? size - k : k]);
    if (mesh_.face_colours()) {
      if (const auto look = body.face_colour(i)) colour(*look, face_bytes_, opaque_ ? 3 : 4);
    }
    text_.text("\n");
    if (!go_on()) return false;
  }
  return true;
}

void offMeshWriter::colour(const annColour& colour, bool bytes, std::size_t components) {
  const auto as_bytes = vlt_bytes_of(colour);
  const float levels[] = {colour.red, colour.green, colour.blue, colour.opacity};
  for (std::size_t i = 0; i < components; ++i) {
    if (bytes) {
      behind_blank(std::size_t{as_bytes[i]});
    } else {
      behind_blank(std::clamp(levels[i], 0.0F, 1.0F));
    }
  }
}

bool offMeshWriter::go_on() {
  cancelled_ = !progress_.reached(++done_);
  return !cancelled_ && stream_.good();
}
