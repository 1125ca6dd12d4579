#pragma once

#include "velabsOutput.h"
#include "vltNumberLines.h"

// The front of a file: the keyword, which says what stands on the lines of vertices, and the counts. The Object File
// Format as the manual of the geometry viewer that introduced it describes it.
//
// The keyword is "OFF" behind letters for what vertices have beside x, y and z. It may be missing; the counts may stand
// behind it or on the next line; the count of edges, which nothing depends on, may be missing.
struct offHead {
  bool textures = false;  // ST
  bool colours = false;   // C
  bool normals = false;   // N
  std::size_t vertices = 0;
  std::size_t faces = 0;

  // Leaves `lines` at the end of the line of the counts. False, and a message, when the front cannot be understood,
  // announces what is not read, or counts more than a file of `size` bytes holds.
  bool read(vltNumberLines& lines, std::size_t size, velabsOutput& output);

 private:
  bool read_keyword(vltNumberLines& lines, velabsOutput& output);
  bool read_counts(vltNumberLines& lines, velabsOutput& output);
};
