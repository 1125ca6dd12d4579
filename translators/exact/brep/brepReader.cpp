#include "brepReader.h"

#include "brepFormat.h"
#include "brepTree.h"
#include "exaOutput.h"
#include "exaSession.h"
#include "exaShape.h"
#include "vltInput.h"
#include "vltScale.h"
#include "vltUp.h"

VELABS_INPUT_LIBRARY(brepReader)

brepReader::brepReader() : vltDescribed(brep_format, "Reads exact shapes from BREP files, text and binary.") {}

velabsResult brepReader::read(const utString& file, const velTableInstance& resources, annDocument& document,
                              velabsOutput& listener) {
  exaOutput output(listener);
  const std::optional<double> factor = vlt_input_scale(resources, document, output);
  if (!factor || !vlt_read_up(annUP_Z, resources, document, output)) return velabsFAILED;
  const std::unique_ptr<apMappedFile> mapped = vlt_open(file, output);
  if (!mapped) return velabsFAILED;
  exaSession session(output);
  apStatus status;
  const TopoDS_Shape shape = exa_parse_shape(mapped->bytes(), status);
  if (shape.IsNull()) {
    output.message(velabsERROR, utString("it is no whole BREP file: ") + status.failure() + session.reason());
    return velabsFAILED;
  }
  if (output.cancelled()) return velabsCANCELLED;
  session.tell_complaints();
  brepTree tree(exa_read_options(resources), output);
  const bool read = session.guarded("it cannot be read", [&] { return tree.read(shape, document.root); });
  if (output.cancelled()) return velabsCANCELLED;
  if (!read) return velabsFAILED;
  document.scale(*factor);
  return velabsDONE;
}
