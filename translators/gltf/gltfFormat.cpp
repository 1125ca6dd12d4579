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
