#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "vltVertexLists.h"

// All bodies of a document as the single mesh that some formats store. Computed before writing: the counts of vertices
// and faces, and which attributes they have. When normals are written, each vertex has one: vertices at hard edges are
// split, and parts without normals get face normals if other parts have normals. The nodes must outlive this object.
class vltOneMesh {
 public:
  // The format and the resources WRITE_NORMALS, WRITE_VERTEX_COLOURS and WRITE_MATERIALS limit the attributes.
  vltOneMesh(std::vector<vltPlacedMesh> bodies, const velTableInstance& resources);
  vltOneMesh(const vltOneMesh&) = delete;
  vltOneMesh& operator=(const vltOneMesh&) = delete;

  // Checks all coordinates. False, with a message, when one cannot be written.
  bool check(velabsOutput& output);
  // Reports how parts without normals or vertex colours are written when other parts have them.
  void tell_mixture(velabsOutput& output) const;

  const std::vector<vltPlacedMesh>& bodies() const { return bodies_; }
  const vltVertexLists& lists() const { return lists_; }
  std::size_t face_count() const { return faces_; }
  std::size_t largest_face() const { return largest_face_; }

  // True when every vertex has a normal. Normals are not written when some parts have them and others are bare points.
  bool normals() const { return normals_ == Spread::all; }
  // True when some vertex has a colour.
  bool vertex_colours() const { return colours_ != Spread::none; }
  // The vertex colours of a list, when any vertex has a colour. A list without colours gets those of its faces, which
  // vertex colours replace, and white for faces without a colour.
  const std::vector<annColour>& colours_of(const vltVertexList& list) const {
    return list.vertices->colours.empty() ? made_colours_[lists_.index_of(list)] : list.vertices->colours;
  }
  // True when all components of vertex colours, or of face colours, are integers divided by 255.
  bool vertex_colours_are_bytes() const { return bytes_; }

  // True when some face has a colour.
  bool face_colours() const { return face_colours_; }
  // True when every face has a colour.
  bool all_faces_coloured() const { return face_colours_ && all_coloured_; }

  // Valid after `check`: every placed coordinate is exactly a float.
  bool floats_suffice() const { return floats_suffice_; }

 private:
  enum class Spread { none, some, all };
  // True when parts got face normals.
  static bool split_vertices(std::vector<vltPlacedMesh>& bodies);
  void make_colours(bool of_faces);
  void look_at_faces(const vltPlacedMesh& body);

  std::vector<vltPlacedMesh> bodies_;
  bool face_normals_;
  vltVertexLists lists_;
  std::size_t faces_ = 0;
  std::size_t largest_face_ = 0;
  std::vector<std::vector<annColour>> made_colours_;  // of lists without colours, when others have them
  Spread normals_ = Spread::none, colours_ = Spread::none;
  bool bytes_ = true;
  bool face_colours_ = false, all_coloured_ = true;
  bool floats_suffice_ = true;
};

// A colour as four numbers from 0 to 255; components are clamped to 0 to 1.
std::array<std::uint8_t, 4> vlt_bytes_of(const annColour& colour);
// True when `vlt_bytes_of` loses nothing.
bool vlt_is_of_bytes(const annColour& colour);
