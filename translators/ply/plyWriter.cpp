#include "plyWriter.h"

#include <limits>

#include "plyBinaryWriter.h"
#include "plyFormat.h"
#include "plyTextWriter.h"
#include "velFileFormat.h"
#include "vltLosses.h"
#include "vltTextOutput.h"

VELABS_OUTPUT_LIBRARY(plyWriter)

plyWriter::plyWriter(velabsOfStream* stream)
    : vltDescribed(ply_format, "Writes polygon meshes to PLY files, binary or ASCII."), stream_(*stream) {}

velabsResult plyWriter::write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) {
  const std::optional<int> digits = vlt_digits(resources, output);
  if (!digits) return velabsFAILED;
  const std::optional<vltWrittenMeshes> meshes = vlt_written_meshes(document, annUP_UNKNOWN, resources, output);
  if (!meshes) return velabsFAILED;

  vltOneMesh mesh(meshes->bodies, resources);
  if (mesh.lists().vertex_count() > std::numeric_limits<std::int32_t>::max()) {
    output.message(velabsERROR, utString(std::to_string(mesh.lists().vertex_count()) +
                                         " vertices are more than the faces of a PLY file can number"));
    return velabsFAILED;
  }
  if (!mesh.check(output)) return velabsFAILED;
  const vltCarries carries{
      .format = "PLY", .polygons = true, .colours = true, .vertex_normals = true, .vertex_colours = true};
  vlt_tell_losses(document, *meshes, carries, resources, output);
  mesh.tell_mixture(output);
  if (mesh.face_colours() && !mesh.all_faces_coloured()) {
    output.message(velabsNOTE, "PLY holds colours for all faces or none: those without one are written light grey");
  }
  const plyContent content(mesh);
  const bool text = resources.value<velFileFormat>("FILE_FORMAT", velFORMAT_BINARY) == velFORMAT_ASCII;
  return text ? ply_write_text(content, *digits, stream_, output) : ply_write_binary(content, stream_, output);
}
