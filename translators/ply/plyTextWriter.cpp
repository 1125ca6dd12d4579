#include "plyTextWriter.h"

#include <algorithm>

#include "vltTextOutput.h"

namespace {

using Colours = plyContent::Colours;

class TextWriter {
 public:
  TextWriter(const plyContent& content, int digits, velabsOfStream& stream, velabsOutput& output)
      : content_(content), text_(stream, digits), pace_(content, stream, output) {}

  velabsResult write() {
    text_.text(content_.head("ascii"));
    for (const vltVertexList& list : content_.mesh.lists().all()) {
      if (!vertices(list)) return pace_.result();
    }
    for (std::size_t body = 0; body < content_.mesh.bodies().size(); ++body) {
      if (!faces(body)) return pace_.result();
    }
    return velabsDONE;
  }

 private:
  bool vertices(const vltVertexList& list) {
    const annVertices& from = *list.vertices;
    const bool placed = !list.placement.is_identity();
    for (std::size_t i = 0; i < from.points.size(); ++i) {
      const annVector p = placed ? list.placement.point(from.points[i]) : from.points[i];
      text_.number(p.x);
      behind_blank(p.y);
      behind_blank(p.z);
      if (content_.normals) {
        const annVector n = placed ? list.placement.normal(from.normals[i]) : from.normals[i];
        for (double value : {n.x, n.y, n.z}) behind_blank(static_cast<float>(value));
      }
      if (content_.vertex_colours != Colours::none) {
        colour(content_.mesh.colours_of(list)[i]);
      }
      text_.text("\n");
      if (!pace_.go_on(1)) return false;
    }
    return true;
  }

  void colour(const annColour& c) {
    if (content_.vertex_colours == Colours::bytes) return bytes(vlt_bytes_of(c));
    for (float level : {c.red, c.green, c.blue, c.opacity}) behind_blank(std::clamp(level, 0.0F, 1.0F));
  }

  bool faces(std::size_t number) {
    const vltPlacedMesh& body = content_.mesh.bodies()[number];
    const std::size_t first = content_.mesh.lists().of(number).first;
    const bool mirrors = body.placement.mirrors();
    const plyFaceColours looks(body);
    for (std::size_t i = 0; i < body.mesh->face_count(); ++i) {
      const auto corners = body.mesh->face(i);
      const std::size_t size = corners.size();
      text_.number(size);
      for (std::size_t k = 0; k < size; ++k) behind_blank(first + corners[mirrors && k > 0 ? size - k : k]);
      if (content_.face_colours) bytes(looks.of(i));
      text_.text("\n");
      if (!pace_.go_on(1)) return false;
    }
    return true;
  }

  void bytes(const std::array<std::uint8_t, 4>& values) {
    for (std::uint8_t value : values) behind_blank(std::size_t{value});
  }

  template <typename Number>
  void behind_blank(Number value) {
    text_.text(" ");
    text_.number(value);
  }

  const plyContent& content_;
  vltTextOutput text_;
  plyPace pace_;
};

}  // namespace

velabsResult ply_write_text(const plyContent& content, int digits, velabsOfStream& stream, velabsOutput& output) {
  return TextWriter(content, digits, stream, output).write();
}
