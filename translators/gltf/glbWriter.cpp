#include "glbWriter.h"

#include <limits>

#include "gltfData.h"
#include "gltfFormat.h"
#include "gltfPlanText.h"
#include "vltScale.h"

VELABS_OUTPUT_LIBRARY(glbWriter)

namespace {

void write_numbers(velabsOfStream& stream, std::initializer_list<std::size_t> numbers) {
  for (std::size_t number : numbers) {
    const auto written = static_cast<std::uint32_t>(number);
    stream.write({reinterpret_cast<const char*>(&written), sizeof written});
  }
}

}  // namespace

glbWriter::glbWriter(velabsOfStream* stream)
    : vltDescribed(gltf_binary_format, "Writes triangle meshes to binary glTF 2.0 files."), stream_(*stream) {}

velabsResult glbWriter::write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) {
  const std::optional<double> factor = vlt_output_scale_to(velLENGTH_METRE, resources, document, output);
  if (!factor) return velabsFAILED;
  const std::optional<gltfPlan> plan = gltfPlanner(document, resources, output).plan(*factor);
  if (!plan) return velabsFAILED;

  std::string text = gltf_text_of(*plan) + gltf_end_of_text(*plan);
  text.resize((text.size() + 3) / 4 * 4, ' ');
  const bool has_data = plan->data_size > 0;
  const std::size_t size =
      glb_head_size + glb_chunk_head_size + text.size() + (has_data ? glb_chunk_head_size + plan->data_size : 0);
  if (size > std::numeric_limits<std::uint32_t>::max()) {
    output.message(velabsERROR, utString("the file would have " + std::to_string(size) +
                                         " bytes, and GLB ends at 4 GiB; the format GLTF has no such limit"));
    return velabsFAILED;
  }
  write_numbers(stream_, {glb_magic, 2, size, text.size(), glb_json_chunk});
  stream_.write(text);
  if (!has_data) return velabsDONE;
  write_numbers(stream_, {plan->data_size, glb_binary_chunk});
  gltfSink sink(stream_, false);
  if (gltfDataWriter(*plan, sink, output).write()) return velabsDONE;
  return output.cancelled() ? velabsCANCELLED : velabsFAILED;
}
