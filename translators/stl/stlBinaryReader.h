#pragma once

#include "annDocument.h"
#include "apMappedFile.h"
#include "velTableInstance.h"
#include "velabsOutput.h"
#include "velabsResult.h"

// Reads the binary form into one node. The header becomes its name when it has the form "solid NAME"; other headers
// only describe the program that wrote the file.
//
// A count of more triangles than there are bytes is an error. Bytes after the last triangle are skipped with a
// warning. A count of 0 before complete triangles was probably never filled in: they are read.
class stlBinaryReader {
 public:
  stlBinaryReader(apMappedFile& file, const velTableInstance& resources, annDocument& document, velabsOutput& output)
      : file_(file), bytes_(file.bytes()), resources_(resources), document_(document), output_(output) {}

  velabsResult read(double factor);

 private:
  bool count_triangles();
  velabsResult read_triangles(annMesh& mesh, annNode& node, double factor);

  apMappedFile& file_;
  std::string_view bytes_;
  const velTableInstance& resources_;
  annDocument& document_;
  velabsOutput& output_;
  std::size_t count_ = 0;
};
