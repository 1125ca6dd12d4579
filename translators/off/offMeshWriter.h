#pragma once

#include "velabsResult.h"
#include "vltOneMesh.h"
#include "vltProgress.h"
#include "vltTextOutput.h"

// Writes the text of a file. The keyword is OFF, COFF, NOFF or CNOFF: with "N" a normal and with "C" a colour of four
// components follow the coordinates of each vertex. A face colour follows the corners of each face that has one, with
// three components when all are opaque, else four. Components are integers up to 255 when that is exact, else
// fractions of 1: programs distinguish the two by the decimal point. The count of edges is 0, because readers ignore
// it.
class offMeshWriter {
 public:
  offMeshWriter(const vltOneMesh& mesh, int digits, velabsOfStream& stream, velabsOutput& output);

  velabsResult write();

 private:
  void look_at_face_colours();
  bool vertices(const vltVertexList& list);
  bool faces(std::size_t body);
  void colour(const annColour& colour, bool bytes, std::size_t components);
  bool go_on();

  template <typename Number>
  void behind_blank(Number value) {
    text_.text(" ");
    text_.number(value);
  }

  const vltOneMesh& mesh_;
  velabsOfStream& stream_;
  vltTextOutput text_;
  vltProgress progress_;
  bool face_bytes_ = true, opaque_ = true;
  std::size_t done_ = 0;
  bool cancelled_ = false;
};
