#include "offWriter.h"

#include "offFormat.h"
#include "offMeshWriter.h"
#include "vltScale.h"

VELABS_OUTPUT_LIBRARY(offWriter)

offWriter::offWriter(velabsOfStream* stream)
    : vltDescribed(off_format, "Writes polygon meshes to OFF files."), stream_(*stream) {}

velabsResult offWriter::write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) {
  velLengthUnit unit = velLENGTH_UNSPECIFIED;
  const std::optional<double> factor = vlt_output_scale(resources, document, output, unit);
  const std::optional<int> digits = vlt_digits(resources, output);
  if (!factor || !digits) return velabsFAILED;
  const auto bodies = vlt_placed_meshes(document, resources, *factor, output);
  if (!bodies) return velabsFAILED;

  vltOneMesh mesh(*bodies, resources);
  if (!mesh.check(output)) return velabsFAILED;
  const vltCarries carries{
      .format = "OFF", .polygons = true, .colours = true, .vertex_normals = true, .vertex_colours = true};
  vlt_tell_losses(document, *bodies, carries, unit, resources, output);
  mesh.tell_mixture(output);
  return offMeshWriter(mesh, *digits, stream_, output).write();
}
