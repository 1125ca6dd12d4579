#include "stlWriter.h"

#include "stlBinaryWriter.h"
#include "stlFormat.h"
#include "stlTextWriter.h"
#include "velFileFormat.h"
#include "vltRounding.h"
#include "vltScale.h"

VELABS_OUTPUT_LIBRARY(stlWriter)

stlWriter::stlWriter(velabsOfStream* stream)
    : vltDescribed(stl_format, "Writes triangles to STL files, binary or ASCII."), stream_(*stream) {}

velabsResult stlWriter::write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) {
  velLengthUnit unit = velLENGTH_UNSPECIFIED;
  const std::optional<double> factor = vlt_output_scale(resources, document, output, unit);
  if (!factor) return velabsFAILED;
  const auto bodies = vlt_placed_meshes(document, resources, *factor, output);
  if (!bodies) return velabsFAILED;

  const bool text = resources.value<velFileFormat>("FILE_FORMAT", velFORMAT_BINARY) == velFORMAT_ASCII;
  const bool one_solid = !resources.value<utString>("SOLID_NAME").empty();
  const vltCarries carries{.format = "STL", .parts = text && !one_solid, .colours = !text, .opacity = false};
  vlt_tell_losses(document, *bodies, carries, unit, resources, output);
  if (!text) vlt_tell_rounding(*bodies, "binary STL", "FILE_FORMAT ascii", output);
  return text ? stl_write_text(*bodies, resources, stream_, output)
              : stl_write_binary(*bodies, resources, stream_, output);
}
