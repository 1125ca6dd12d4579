#include "gltfMaterials.h"

#include <algorithm>
#include <array>

#include "gltfFormat.h"
#include "vltNames.h"

float gltfAlpha::opacity(double alpha) const {
  if (mode == BLEND) return static_cast<float>(std::clamp(alpha, 0.0, 1.0));
  return mode == MASK && alpha < cutoff ? 0 : 1;
}

annColour gltfBase::shown(double red, double green, double blue, double opacity) const {
  return {gltf_shown(colour[0] * red), gltf_shown(colour[1] * green), gltf_shown(colour[2] * blue),
          alpha.opacity(colour[3] * opacity)};
}

gltfBase gltfBase::of_vertices(bool have_opacities) const {
  if (have_opacities && alpha.mode != gltfAlpha::OPAQUE) return *this;
  gltfBase result{colour};
  result.colour[3] = alpha.opacity(colour[3]);
  if (result.colour[3] < 1) result.alpha.mode = gltfAlpha::BLEND;
  return result;
}

const gltfMaterial* gltfMaterials::find(std::size_t index) {
  std::optional<gltfMaterial>& material = materials_[index];
  if (!material) material = read(index);
  return material ? &*material : nullptr;
}

std::optional<gltfAlpha> gltfMaterials::alpha(std::size_t index) const {
  constexpr const char* modes[] = {"OPAQUE", "MASK", "BLEND"};
  const gltfValue value = model_.item(gltfMATERIALS, index);
  std::string_view mode = modes[gltfAlpha::OPAQUE];
  gltfAlpha alpha;
  if (!value.read("alphaMode", mode) || !value.read("alphaCutoff", alpha.cutoff)) return std::nullopt;
  const auto* const known = std::find(std::begin(modes), std::end(modes), mode);
  if (known == std::end(modes)) {
    value.fail("alphaMode", vlt_quoted(mode) + " is none of OPAQUE, MASK and BLEND");
    return std::nullopt;
  }
  alpha.mode = static_cast<gltfAlpha::Mode>(known - std::begin(modes));
  return alpha;
}

std::optional<gltfMaterial> gltfMaterials::read(std::size_t index) const {
  const gltfValue value = model_.item(gltfMATERIALS, index);
  const std::optional<gltfAlpha> alpha = this->alpha(index);
  if (!alpha) return std::nullopt;
  std::string_view name;
  std::optional<gltfValue> metallic, extensions, specular;
  gltfBase base{.alpha = *alpha};
  std::array<double, 3> emission{};
  double metal = 0, roughness = 1;  // a material without them loses nothing
  bool double_sided = false;
  if (!value.read("name", name) || !value.read("emissiveFactor", emission) ||
      !value.read("doubleSided", double_sided) || !value.read("pbrMetallicRoughness", metallic) ||
      !value.read("extensions", extensions)) {
    return std::nullopt;
  }
  if (metallic && (!metallic->read("baseColorFactor", base.colour) || !metallic->read("metallicFactor", metal) ||
                   !metallic->read("roughnessFactor", roughness))) {
    return std::nullopt;
  }
  if (extensions && !extensions->read("KHR_materials_pbrSpecularGlossiness", specular)) return std::nullopt;
  if (specular) {
    base.colour = {1, 1, 1, 1};
    if (!specular->read("diffuseFactor", base.colour)) return std::nullopt;
  }
  if (emission != std::array<double, 3>{} || metal != 0 || roughness != 1 || extensions) {
    findings_.count(velabsNOTE, "of materials only name, colour and opacity are kept");
  }
  const bool is_look = !name.empty() || specular || (metallic && metallic->has("baseColorFactor"));
  return gltfMaterial{{utString(name), base.shown()}, base, is_look, double_sided};
}
