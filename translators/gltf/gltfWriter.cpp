#include "gltfWriter.h"

#include <filesystem>

#include "gltfData.h"
#include "gltfFormat.h"
#include "gltfPlanText.h"
#include "gltfUri.h"
#include "vltFlag.h"
#include "vltScale.h"

VELABS_OUTPUT_LIBRARY(gltfWriter)

gltfWriter::gltfWriter(velabsOfStream* stream)
    : vltDescribed(gltf_text_format, "Writes triangle meshes to glTF 2.0 files, JSON with binary data beside it."),
      stream_(*stream) {}

velabsResult gltfWriter::write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) {
  const std::optional<double> factor = vlt_output_scale_to(velLENGTH_METRE, resources, document, output);
  if (!factor) return velabsFAILED;
  const std::optional<gltfPlan> plan = gltfPlanner(document, resources, output).plan(*factor);
  if (!plan) return velabsFAILED;

  stream_.write(gltf_text_of(*plan));
  if (plan->data_size > 0) {
    const bool embedded = !stream_.has_room_beside() || vlt_flag(resources, "EMBED_BUFFERS");
    velabsOfStream& data_stream = embedded ? stream_ : stream_.companion("bin");
    const std::string name = std::filesystem::path(data_stream.target().str()).filename().string();
    stream_.write(",\"uri\":\"");
    stream_.write(embedded ? "data:application/octet-stream;base64," : gltf_percent_encoded(name));
    gltfSink sink(data_stream, embedded);
    if (!gltfDataWriter(*plan, sink, output).write()) return output.cancelled() ? velabsCANCELLED : velabsFAILED;
    stream_.write("\"");
  }
  stream_.write(gltf_end_of_text(*plan));
  stream_.write("\n");
  return velabsDONE;
}
