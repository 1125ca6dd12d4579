#pragma once

#include "apMappedFile.h"
#include "offColours.h"
#include "offHead.h"
#include "velabsResult.h"
#include "vltOnce.h"
#include "vltPalette.h"
#include "vltProgress.h"

// Parses the lines of one file into a mesh. The count of numbers on a vertex line defines their meaning, because many
// files have colours after a plain "OFF": a normal if the keyword declares it, a colour of three or four components,
// and texture coordinates, which are skipped. After the corners of a face there may be a colour, or one index into a
// table of colours, which is skipped.
//
// A face with fewer than three corners is skipped with a warning; one with an undefined vertex is an error.
class offParser {
 public:
  offParser(apMappedFile& file, bool materials, double factor, velabsOutput& output);

  velabsResult read();
  const std::shared_ptr<annMesh>& mesh() const { return mesh_; }

 private:
  bool read_vertices();
  bool read_vertex();
  void read_normal();
  bool read_extras(std::span<const double> numbers, std::string_view text);
  bool read_faces();
  bool read_face();
  bool read_corners(long long count);
  bool read_face_colour();
  bool take_numbers(std::span<double> room, std::size_t& count);
  bool next_line(const char* what, std::size_t number, std::size_t of);
  bool fail(std::string_view reason);
  bool finish();
  void finish_colours();

  std::string_view text_;
  bool materials_;
  double factor_;
  velabsOutput& output_;
  vltOnce findings_;
  vltNumberLines lines_;
  vltProgress progress_;
  offHead head_;
  std::shared_ptr<annMesh> mesh_ = std::make_shared<annMesh>();
  vltPalette palette_;
  offColours vertex_colours_, face_colours_;
  std::vector<std::uint32_t> corners_;
  std::size_t faces_left_out_ = 0;
  bool normals_ = false;
  bool cancelled_ = false;
};
