#include "gltfMaterials.h"

#include <algorithm>
#include <array>

#include "gltfFormat.h"
#include "vltNames.h"

const annMaterial* gltfMaterials::find(std::size_t index) {
  std::optional<annMaterial>& material = materials_[index];
  if (!material) material = read(model_.item(gltfMATERIALS, index));
  return material ? &*material : nullptr;
}

std::optional<annMaterial> gltfMaterials::read(const gltfValue& value) const {
  std::string_view name, alpha_mode = "OPAQUE";
  std::optional<gltfValue> metallic, extensions, specular;
  std::array<double, 4> colour{1, 1, 1, 1};
  std::array<double, 3> emission{};
  double metal = 0, roughness = 1;  // what is not said is no loss
  if (!value.read("name", name) || !value.read("alphaMode", alpha_mode) || !value.read("emissiveFactor", emission) ||
      !value.read("pbrMetallicRoughness", metallic) || !value.read("extensions", extensions)) {
    return std::nullopt;
  }
  if (metallic && (!metallic->read("baseColorFactor", colour) || !metallic->read("metallicFactor", metal) ||
                   !metallic->read("roughnessFactor", roughness))) {
    return std::nullopt;
  }
  if (extensions && !extensions->read("KHR_materials_pbrSpecularGlossiness", specular)) return std::nullopt;
  if (specular) {
    colour = {1, 1, 1, 1};
    if (!specular->read("diffuseFactor", colour)) return std::nullopt;
  }
  if (alpha_mode != "OPAQUE" && alpha_mode != "MASK" && alpha_mode != "BLEND") {
    value.fail("alphaMode", vlt_quoted(alpha_mode) + " is none of OPAQUE, MASK and BLEND");
    return std::nullopt;
  }
  if (emission != std::array<double, 3>{} || metal != 0 || roughness != 1 || extensions) {
    findings_.count(velabsNOTE, "of materials only name, colour and opacity are kept");
  }
  const double opacity = alpha_mode == "OPAQUE" ? 1 : std::clamp(colour[3], 0.0, 1.0);
  return annMaterial{utString(name), annColour{gltf_shown(colour[0]), gltf_shown(colour[1]), gltf_shown(colour[2]),
                                               static_cast<float>(opacity)}};
}
