#include "plyReader.h"

#include "plyBody.h"
#include "plyFormat.h"
#include "vltFlag.h"
#include "vltInput.h"
#include "vltScale.h"
#include "vltUp.h"

VELABS_INPUT_LIBRARY(plyReader)

plyReader::plyReader() : vltDescribed(ply_format, "Reads polygon meshes from PLY files, binary and ASCII.") {}

velabsResult plyReader::read(const utString& file, const velTableInstance& resources, annDocument& document,
                             velabsOutput& output) {
  const std::optional<double> factor = vlt_input_scale(resources, document, output);
  if (!factor || !vlt_read_up(annUP_UNKNOWN, resources, document, output)) return velabsFAILED;
  const std::unique_ptr<apMappedFile> mapped = vlt_open(file, output);
  if (!mapped || !vlt_is_byte_text(mapped->bytes(), output)) return velabsFAILED;
  plyHead head;
  if (!head.read(mapped->bytes(), output)) return velabsFAILED;
  const bool materials = vlt_flag(resources, "READ_MATERIALS");
  plyBody body(*mapped, head, materials, *factor, output);
  const velabsResult result = body.read();
  if (result == velabsDONE) document.root.add_child("").body.mesh = body.mesh();
  return result;
}
