#include "gltfReader.h"

#include "gltfContainer.h"
#include "gltfFormat.h"
#include "gltfScene.h"
#include "vltBeside.h"
#include "vltFlag.h"
#include "vltInput.h"
#include "vltScale.h"
#include "vltUp.h"

VELABS_INPUT_LIBRARY(gltfReader)

namespace {

// Reports the content of a file other than nodes and meshes.
bool count_left_out(const gltfModel& model, vltOnce& findings) {
  constexpr std::pair<const char*, const char*> kinds[] = {
      {"textures", "textures are left out"},
      {"animations", "animations are left out"},
      {"cameras", "cameras are left out"},
  };
  for (const auto& [key, what] : kinds) {
    const gltfValue::Array* list = nullptr;
    if (!model.root().read(key, list)) return false;
    if (list && !list->empty()) findings.count(velabsNOTE, what, 0, list->size());
  }
  std::optional<gltfValue> extensions;
  if (!model.root().read("extensions", extensions)) return false;
  if (extensions && extensions->has("KHR_lights_punctual")) findings.count(velabsNOTE, "lights are left out");
  return true;
}

class Reading {
 public:
  Reading(const velTableInstance& resources, velabsOutput& output)
      : resources_(resources), output_(output), findings_(output) {}

  bool read(const utString& file, std::string_view bytes, double factor, annDocument& document) {
    const std::optional<gltfContainer> container = gltf_take_apart(bytes, output_);
    gltfModel model(output_);
    if (!container || !model.parse(container->json, container->json_offset)) return false;
    if (output_.cancelled() || !count_left_out(model, findings_)) return false;

    gltfWork work(output_);
    gltfBuffers buffers(model, vlt_directory_of(file.str()), container->binary, work);
    gltfAccessors accessors(model, buffers, findings_);
    gltfVertexPools pools(accessors, {factor, vlt_flag(resources_, "WELD_POINTS")}, work, findings_);
    gltfMaterials materials(model, findings_);
    gltfMeshes meshes(model, accessors, pools, materials, vlt_flag(resources_, "READ_MATERIALS"), work, findings_);
    if (!gltfScene(model, meshes, factor, findings_).read(document)) return false;
    findings_.tell();
    return !output_.cancelled();
  }

 private:
  const velTableInstance& resources_;
  velabsOutput& output_;
  vltOnce findings_;
};

}  // namespace

gltfReader::gltfReader() : vltDescribed(gltf_format, "Reads triangle meshes from glTF 2.0 files, text and binary.") {}

void gltfReader::file_types(intcoSet& types) const {
  types.add(vluGLTF);
  types.add(vluGLB);
}

velabsResult gltfReader::read(const utString& file, const velTableInstance& resources, annDocument& document,
                              velabsOutput& output) {
  const std::optional<double> factor = vlt_scale(resources, output);
  if (!factor || !vlt_read_up(annUP_Y, resources, document, output)) return velabsFAILED;
  document.unit = velLENGTH_METRE;
  const std::unique_ptr<apMappedFile> mapped = vlt_open(file, output);
  if (!mapped) return velabsFAILED;
  if (Reading(resources, output).read(file, mapped->bytes(), *factor, document)) return velabsDONE;
  return output.cancelled() ? velabsCANCELLED : velabsFAILED;
}
