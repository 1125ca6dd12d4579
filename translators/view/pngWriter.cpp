#include "pngWriter.h"

#include <algorithm>

#include "pngImage.h"
#include "pngPainter.h"
#include "pngRequest.h"

VELABS_OUTPUT_LIBRARY(pngWriter)

namespace {

const vltFormat png_format{"PNG", vluUNKNOWN, {"*png"}, "Pictures (*.png)|*.png", "View"};

// The number of samples in memory at a time, which bounds the memory for large pictures.
constexpr std::size_t samples_at_once = std::size_t{1} << 22;
constexpr std::size_t pixels_of_fine_picture = std::size_t{1} << 21;

// Blends RGBA over a background colour, in place, into the first three bytes of each pixel.
void lay_over(const std::array<std::uint8_t, 3>& background, std::vector<std::uint8_t>& pixels) {
  std::uint8_t* to = pixels.data();
  for (std::size_t at = 0; at < pixels.size(); at += 4) {
    const unsigned opacity = pixels[at + 3];
    for (std::size_t i = 0; i < 3; ++i) {
      *to++ = static_cast<std::uint8_t>((pixels[at + i] * opacity + background[i] * (255 - opacity) + 127) / 255);
    }
  }
}

bool is_empty(const std::vector<viewMesh>& meshes) {
  return std::all_of(meshes.begin(), meshes.end(), [](const viewMesh& mesh) { return mesh.corners.empty(); });
}

}  // namespace

pngWriter::pngWriter(velabsOfStream* stream)
    : vltDescribed(png_format, "Writes a picture of the model."), stream_(*stream) {}

velabsResult pngWriter::write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) {
  const std::optional<pngRequest> request = png_request(resources, output);
  if (!request) return velabsFAILED;
  const auto scene = view_make_scene(document, resources, 1, output);
  if (!scene) return output.cancelled() ? velabsCANCELLED : velabsFAILED;

  const std::size_t side = request->width * request->height <= pixels_of_fine_picture ? 3 : 2;
  const std::size_t rows =
      std::clamp<std::size_t>(samples_at_once / (side * side * request->width), 1, request->height);
  vltProgress progress(output, scene->meshes.size() + request->height, 1);
  std::vector<viewMesh> meshes;
  for (const auto& mesh : scene->meshes) {
    meshes.push_back(view_make_mesh(*mesh));
    if (!progress.reached(meshes.size())) return velabsCANCELLED;
  }
  if (is_empty(meshes)) {
    output.message(velabsERROR, "the model holds no triangle with an extent, so there is nothing to show");
    return velabsFAILED;
  }
  const pngCamera camera(request->direction, *scene, meshes, static_cast<double>(request->width * side),
                         static_cast<double>(request->height * side));
  if (!camera.is_usable()) {
    output.message(velabsERROR, "the model is too large, or too far away, to be drawn");
    return velabsFAILED;
  }

  pngPainter painter(*scene, meshes, camera, request->lines ? 1.1F * static_cast<float>(side) : 0);
  pngBand band(request->width, rows, side);
  pngImage image(stream_);
  std::vector<std::uint8_t> pixels(4 * request->width);
  bool good = image.begin(static_cast<std::uint32_t>(request->width), static_cast<std::uint32_t>(request->height),
                          !request->background);
  for (std::size_t first = 0; good && first < request->height; first += rows) {
    band.begin(first);
    painter.paint(band);
    for (std::size_t row = 0; good && row < std::min(rows, request->height - first); ++row) {
      band.resolve(row, pixels);
      if (request->background) lay_over(*request->background, pixels);
      good = image.row(pixels.data());
    }
    if (!progress.reached(scene->meshes.size() + std::min(first + rows, request->height))) return velabsCANCELLED;
  }
  if (good && image.end()) return velabsDONE;
  if (stream_.good()) output.message(velabsERROR, "there is not enough memory to write the picture");
  return velabsFAILED;
}
