#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "vltVertexLists.h"

// All bodies of a document as the one mesh that some formats hold, seen before it is written: how many vertices and
// faces it has, and what is known of all of them. When normals are written, its vertices have one each: those at hard
// edges are split, and parts without normals beside others with some get those of their faces. The nodes must outlive
// it.
class vltOneMesh {
 public:
  // What the format and the resources WRITE_NORMALS, WRITE_VERTEX_COLOURS and WRITE_MATERIALS let through.
  vltOneMesh(std::vector<vltPlacedMesh> bodies, const velTableInstance& resources);
  vltOneMesh(const vltOneMesh&) = delete;
  vltOneMesh& operator=(const vltOneMesh&) = delete;

  // Looks at every coordinate. False, and a message, when one cannot be written.
  bool check(velabsOutput& output);
  // Says what becomes of parts without normals or vertex colours beside others that have them.
  void tell_mixture(velabsOutput& output) const;

  const std::vector<vltPlacedMesh>& bodies() const { return bodies_; }
  const vltVertexLists& lists() const { return lists_; }
  std::size_t face_count() const { return faces_; }
  std::size_t largest_face() const { return largest_face_; }

  // Every vertex has a normal. None is written when some parts have normals and others are points without any.
  bool normals() const { return normals_ == Spread::all; }
  // Some vertex has a colour.
  bool vertex_colours() const { return colours_ != Spread::none; }
  // Those of a list, one for each vertex, when some vertex has one. A list without any gets those of its faces, because
  // colours of vertices stand in place of theirs, and white for faces without one.
  const std::vector<annColour>& colours_of(const vltVertexList& list) const {
    return list.vertices->colours.empty() ? made_colours_[lists_.index_of(list)] : list.vertices->colours;
  }
  // All components of vertex colours, or of the colours of faces, are whole numbers divided by 255.
  bool vertex_colours_are_bytes() const { return bytes_; }

  // Some face has a colour.
  bool face_colours() const { return face_colours_; }
  // Every face has one.
  bool all_faces_coloured() const { return face_colours_ && all_coloured_; }

  // After `check`: every coordinate, where it is placed, is a float exactly.
  bool floats_suffice() const { return floats_suffice_; }

 private:
  enum class Spread { none, some, all };
  // True when parts got the normals of their faces.
  static bool split_vertices(std::vector<vltPlacedMesh>& bodies);
  void make_colours(bool of_faces);
  void look_at_faces(const vltPlacedMesh& body);

  std::vector<vltPlacedMesh> bodies_;
  bool face_normals_;
  vltVertexLists lists_;
  std::size_t faces_ = 0;
  std::size_t largest_face_ = 0;
  std::vector<std::vector<annColour>> made_colours_;  // of lists without any beside others that have them
  Spread normals_ = Spread::none, colours_ = Spread::none;
  bool bytes_ = true;
  bool face_colours_ = false, all_coloured_ = true;
  bool floats_suffice_ = true;
};

// A colour as four numbers from 0 to 255; what lies outside the range from 0 to 1 is brought to its ends.
std::array<std::uint8_t, 4> vlt_bytes_of(const annColour& colour);
// True when nothing is lost by it.
bool vlt_is_of_bytes(const annColour& colour);
