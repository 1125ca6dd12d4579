#include "stlWriter.h"

#include "stlBinaryWriter.h"
#include "stlFormat.h"
#include "stlTextWriter.h"
#include "velFileFormat.h"
#include "vltLosses.h"
#include "vltRounding.h"

VELABS_OUTPUT_LIBRARY(stlWriter)

stlWriter::stlWriter(velabsOfStream* stream)
    : vltDescribed(stl_format, "Writes triangles to STL files, binary or ASCII."), stream_(*stream) {}

velabsResult stlWriter::write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) {
  const std::optional<vltWrittenMeshes> meshes = vlt_written_meshes(document, annUP_Z, resources, output);
  if (!meshes || !vlt_has_faces(meshes->bodies, "STL", output)) return velabsFAILED;

  const bool text = resources.value<velFileFormat>("FILE_FORMAT", velFORMAT_BINARY) == velFORMAT_ASCII;
  const bool one_solid = !resources.value<utString>("SOLID_NAME").empty();
  const vltCarries carries{
      .format = "STL", .faces_only = true, .parts = text && !one_solid, .colours = !text, .opacity = false};
  vlt_tell_losses(document, *meshes, carries, resources, output);
  if (!text) vlt_tell_rounding(meshes->bodies, "binary STL", "FILE_FORMAT ascii", output);
  return text ? stl_write_text(meshes->bodies, resources, stream_, output)
              : stl_write_binary(meshes->bodies, resources, stream_, output);
}
