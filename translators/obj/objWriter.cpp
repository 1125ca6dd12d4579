#include "objWriter.h"

#include <filesystem>

#include "objFormat.h"
#include "objLooks.h"
#include "objMeshWriter.h"
#include "vltFlag.h"
#include "vltLosses.h"
#include "vltNames.h"
#include "vltTextOutput.h"
#include "vltVertexLists.h"

VELABS_OUTPUT_LIBRARY(objWriter)

namespace {

constexpr std::size_t progress_step = std::size_t{1} << 15;

// True when a reader would parse the sidecar's name from its line unchanged.
bool can_be_referred_to(const velabsOfStream& stream) {
  const std::string name = std::filesystem::path(stream.target().str()).stem().string() + ".mtl";
  return name == vlt_one_line(name) && name.front() != '#' && name.find(" #") == name.npos &&
         name.find('\\') == name.npos;
}

}  // namespace

objWriter::objWriter(velabsOfStream* stream)
    : vltDescribed(obj_format, "Writes polygon meshes with their materials to OBJ files."), stream_(*stream) {}

velabsResult objWriter::write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) {
  const std::optional<int> digits = vlt_digits(resources, output);
  if (!digits) return velabsFAILED;
  const std::optional<vltWrittenMeshes> meshes = vlt_written_meshes(document, annUP_UNKNOWN, resources, output);
  if (!meshes) return velabsFAILED;
  const std::vector<vltPlacedMesh>& bodies = meshes->bodies;

  const bool room = stream_.has_room_beside();
  objLooks looks(room && vlt_flag(resources, "WRITE_MATERIALS") ? bodies : std::vector<vltPlacedMesh>());
  if (!looks.empty() && !can_be_referred_to(stream_)) {
    output.message(velabsWARNING, "no materials are written: OBJ cannot refer to a file of the name it would have");
    looks = objLooks({});
  }
  const vltCarries carries{.format = "OBJ",
                           .polygons = true,
                           .parts = true,
                           .colours = room,
                           .material_names = true,
                           .vertex_normals = true,
                           .vertex_colours = true,
                           .vertex_opacity = false};
  vlt_tell_losses(document, *meshes, carries, resources, output);
  if (!looks.empty()) {
    velabsOfStream& companion = stream_.companion("mtl");
    stream_.write("mtllib " + std::filesystem::path(companion.target().str()).filename().string() + "\n");
    looks.write(companion);
    looks.tell_renamed(output);
  }
  const vltVertexLists lists(bodies);
  std::size_t faces = 0;
  for (const vltPlacedMesh& body : bodies) faces += body.mesh->face_count();
  vltProgress progress(output, lists.vertex_count() + faces, progress_step);
  objMeshWriter writer(stream_, resources, *digits, looks.empty() ? nullptr : &looks, lists, progress, output);
  for (std::size_t i = 0; i < bodies.size(); ++i) {
    if (!writer.write(bodies[i], i)) return output.cancelled() ? velabsCANCELLED : velabsFAILED;
  }
  writer.tell_renamed();
  return velabsDONE;
}
