#pragma once

#include "velabsOutput.h"
#include "vltNumberLines.h"

// The header of a file: the keyword, which defines the content of vertex lines, and the counts. The Object File Format
// is described in the manual of the geometry viewer that introduced it.
//
// The keyword is "OFF" after letters for the attributes of vertices. It may be missing. The counts may follow it or be
// on the next line. The count of edges is not used and may be missing.
struct offHead {
  bool textures = false;  // ST
  bool colours = false;   // C
  bool normals = false;   // N
  std::size_t vertices = 0;
  std::size_t faces = 0;

  // Leaves `lines` at the end of the line with the counts. False, with a message, when the header is invalid, declares
  // unsupported content, or has counts that do not fit a file of `size` bytes.
  bool read(vltNumberLines& lines, std::size_t size, velabsOutput& output);

 private:
  bool read_keyword(vltNumberLines& lines, velabsOutput& output);
  bool read_counts(vltNumberLines& lines, velabsOutput& output);
};
