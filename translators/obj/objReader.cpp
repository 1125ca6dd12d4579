#include "objReader.h"

#include "objFormat.h"
#include "objParser.h"
#include "vltInput.h"
#include "vltScale.h"
#include "vltUp.h"

VELABS_INPUT_LIBRARY(objReader)

objReader::objReader() : vltDescribed(obj_format, "Reads polygon meshes with their materials from OBJ files.") {}

velabsResult objReader::read(const utString& file, const velTableInstance& resources, annDocument& document,
                             velabsOutput& output) {
  const std::optional<double> factor = vlt_input_scale(resources, document, output);
  if (!factor || !vlt_read_up(annUP_UNKNOWN, resources, document, output)) return velabsFAILED;
  const std::unique_ptr<apMappedFile> mapped = vlt_open(file, output);
  if (!mapped || !vlt_is_byte_text(mapped->bytes(), output)) return velabsFAILED;
  return objParser(file, *mapped, resources, document, output, *factor).read();
}
