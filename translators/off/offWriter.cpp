#include "offWriter.h"

#include "offFormat.h"
#include "offMeshWriter.h"
#include "vltLosses.h"
#include "vltTextOutput.h"

VELABS_OUTPUT_LIBRARY(offWriter)

offWriter::offWriter(velabsOfStream* stream)
    : vltDescribed(off_format, "Writes polygon meshes to OFF files."), stream_(*stream) {}

velabsResult offWriter::write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) {
  const std::optional<int> digits = vlt_digits(resources, output);
  if (!digits) return velabsFAILED;
  const std::optional<vltWrittenMeshes> meshes = vlt_written_meshes(document, annUP_UNKNOWN, resources, output);
  if (!meshes) return velabsFAILED;

  vltOneMesh mesh(meshes->bodies, resources);
  if (!mesh.check(output)) return velabsFAILED;
  const vltCarries carries{
      .format = "OFF", .polygons = true, .colours = true, .vertex_normals = true, .vertex_colours = true};
  vlt_tell_losses(document, *meshes, carries, resources, output);
  mesh.tell_mixture(output);
  return offMeshWriter(mesh, *digits, stream_, output).write();
}
