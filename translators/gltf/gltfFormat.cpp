#include "gltfFormat.h"

#include <algorithm>
#include <cmath>

const vltFormat gltf_format{"GLTF", vluGLTF, {"*gltf", "glb"}, "glTF Files (*.gltf;*.glb)|*.gltf;*.glb", "Mesh"};
const vltFormat gltf_text_format{"GLTF", vluGLTF, {"*gltf"}, "glTF Files (*.gltf)|*.gltf", "Mesh"};
const vltFormat gltf_binary_format{"GLB", vluGLB, {"*glb"}, "Binary glTF Files (*.glb)|*.glb", "Mesh"};

namespace {

// The transfer function of sRGB, IEC 61966-2-1.
constexpr double linear_slope = 12.92;
constexpr double curve_offset = 0.055;
constexpr double curve_exponent = 2.4;
constexpr double shown_limit = 0.04045;
constexpr double linear_limit = 0.0031308;

// Rows 1 and 2 change places and one of them its sign; adding 0 makes -0 to 0.
annTransform exchanged(const annTransform& placement, double sign_of_y, double sign_of_z) {
  annTransform result = placement;
  for (std::size_t i = 0; i < 4; ++i) {
    result.m[4 + i] = sign_of_y * placement.m[8 + i] + 0.0;
    result.m[8 + i] = sign_of_z * placement.m[4 + i] + 0.0;
  }
  return result;
}

}  // namespace

double gltf_linear(float shown) {
  const double value = std::clamp(static_cast<double>(shown), 0.0, 1.0);
  return value <= shown_limit ? value / linear_slope
                              : std::pow((value + curve_offset) / (1 + curve_offset), curve_exponent);
}

float gltf_shown(double linear) {
  const double value = std::clamp(linear, 0.0, 1.0);
  return static_cast<float>(value <= linear_limit
                                ? value * linear_slope
                                : (1 + curve_offset) * std::pow(value, 1 / curve_exponent) - curve_offset);
}

annTransform gltf_y_up_to_z_up(const annTransform& placement) {
  return exchanged(placement, -1, 1);
}

annTransform gltf_z_up_to_y_up(const annTransform& placement) {
  return exchanged(placement, 1, -1);
}
