#include "stlColours.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::uint16_t high_bit = 0x8000;

float level(unsigned bits) {
  return static_cast<float>(bits & 31) / 31.0F;
}

std::optional<annColour> colour_of_whole(std::string_view remarks) {
  constexpr std::string_view mark = "COLOR=";
  const std::size_t at = remarks.find(mark);
  if (at == remarks.npos || at + mark.size() + 4 > remarks.size()) return std::nullopt;
  auto byte = [&](std::size_t i) {
    return static_cast<float>(static_cast<unsigned char>(remarks[at + mark.size() + i])) / 255.0F;
  };
  return annColour{byte(0), byte(1), byte(2), byte(3)};
}

}  // namespace

stlColourReader::stlColourReader(std::string_view remarks, annMesh& mesh)
    : mesh_(mesh), whole_(colour_of_whole(remarks)) {}

void stlColourReader::take_colour(std::size_t triangle, std::uint16_t attribute) {
  any_attribute_ = any_attribute_ || attribute != 0;
  const bool own = ((attribute & high_bit) != 0) != whole_.has_value();
  if (!own) return;
  const unsigned bits = attribute & (high_bit - 1);
  if (material_of_.empty()) material_of_.assign(high_bit, annMesh::no_material);
  std::uint32_t& material = material_of_[bits];
  if (material == annMesh::no_material) {
    material = static_cast<std::uint32_t>(mesh_.materials.size());
    annColour colour{level(bits >> 10), level(bits >> 5), level(bits), 1};
    if (whole_) std::swap(colour.red, colour.blue);
    mesh_.materials.push_back({{}, colour});
  }
  if (mesh_.face_materials.empty()) mesh_.face_materials.reserve(mesh_.corners.capacity() / 3);
  mesh_.face_materials.resize(triangle, annMesh::no_material);
  mesh_.face_materials.push_back(material);
}

bool stlColourReader::finish() {
  if (!any_attribute_) {
    mesh_.materials.clear();
    mesh_.face_materials = {};
  }
  if (!mesh_.face_materials.empty()) mesh_.face_materials.resize(mesh_.face_count(), annMesh::no_material);
  return any_attribute_ && !whole_ && mesh_.face_materials.empty();
}

std::uint16_t stl_attribute(const annColour& colour) {
  auto bits = [](float value) { return static_cast<unsigned>(std::lround(std::clamp(value, 0.0F, 1.0F) * 31)); };
  return static_cast<std::uint16_t>(high_bit | bits(colour.red) << 10 | bits(colour.green) << 5 | bits(colour.blue));
}
