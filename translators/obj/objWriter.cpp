#include "objWriter.h"

#include <filesystem>

#include "annPlacedVertices.h"
#include "objFormat.h"
#include "objLooks.h"
#include "objMeshWriter.h"
#include "vltScale.h"

VELABS_OUTPUT_LIBRARY(objWriter)

namespace {

constexpr std::size_t progress_step = std::size_t{1} << 15;

bool flag(const velTableInstance& resources, const char* key) {
  return resources.value<utBool>(key, utTRUE) == utTRUE;
}

// A pipe or a device has no place for a companion file beside it.
bool has_room_beside(const velabsOfStream& stream) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(stream.target().str(), error);
  return !std::filesystem::exists(status) || std::filesystem::is_regular_file(status);
}

// Vertices, each as often as it is written, and faces.
std::size_t amount_of_work(const std::vector<vltPlacedMesh>& bodies) {
  std::size_t amount = 0;
  annPlacedVertices seen;
  for (const vltPlacedMesh& body : bodies) {
    amount += body.mesh->face_count();
    const std::size_t known = seen.count();
    if (seen.number_of(*body.mesh->vertices, body.placement) == known) amount += body.mesh->vertices->count();
  }
  return amount;
}

}  // namespace

objWriter::objWriter(velabsOfStream* stream)
    : vltDescribed(obj_format, "Writes polygon meshes with their materials to OBJ files."), stream_(*stream) {}

velabsResult objWriter::write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) {
  velLengthUnit unit = velLENGTH_UNSPECIFIED;
  const std::optional<double> factor = vlt_output_scale(resources, document, output, unit);
  const std::optional<int> digits = vlt_digits(resources, output);
  if (!factor || !digits) return velabsFAILED;
  const auto bodies = vlt_placed_meshes(document, resources, *factor, output);
  if (!bodies) return velabsFAILED;

  const bool room = has_room_beside(stream_);
  objLooks looks(room && flag(resources, "WRITE_MATERIALS") ? *bodies : std::vector<vltPlacedMesh>());
  const vltCarries carries{
      .format = "OBJ", .parts = true, .colours = room, .vertex_normals = true, .vertex_colours = true};
  vlt_tell_losses(document, *bodies, carries, unit, output);
  if (!looks.empty()) {
    velabsOfStream& companion = stream_.companion("mtl");
    stream_.write("mtllib " + std::filesystem::path(companion.target().str()).filename().string() + "\n");
    looks.write(companion);
  }
  vltProgress progress(output, amount_of_work(*bodies), progress_step);
  objMeshWriter writer(stream_, resources, *digits, looks.empty() ? nullptr : &looks, progress, output);
  for (const vltPlacedMesh& body : *bodies) {
    if (!writer.write(body)) return output.cancelled() ? velabsCANCELLED : velabsFAILED;
  }
  return velabsDONE;
}
