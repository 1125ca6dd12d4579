#pragma once

#include <array>

#include "annDocument.h"
#include "apMappedFile.h"
#include "stlCorners.h"
#include "velTableInstance.h"
#include "velabsOutput.h"
#include "velabsResult.h"
#include "vltProgress.h"
#include "vltWords.h"

// Reads the text form. Each solid becomes a node with its name. A solid without facets becomes a node without a body
// if others have facets; if none has any, they get empty meshes and a warning is reported.
//
// Keywords may be in any case, and line breaks anywhere; "#" starts a comment. Normals are ignored: they follow from
// the points, and are wrong in many files. Any other deviation is an error with its line.
class stlTextReader {
 public:
  stlTextReader(apMappedFile& file, const velTableInstance& resources, annDocument& document, velabsOutput& output);

  velabsResult read(double factor);

 private:
  velabsResult read_solid();
  bool read_facet(stlCorners& corners);
  bool read_point(annVector& point);
  bool skip_normal();
  bool expect(std::string_view lower);
  bool fail(std::string_view reason);
  bool fail_expecting(std::string_view found, std::string_view expected);
  void settle_empty_solids();

  velabsOutput& output_;
  annDocument& document_;
  vltWords words_;
  vltProgress progress_;
  double factor_ = 1;
  bool weld_;
};
