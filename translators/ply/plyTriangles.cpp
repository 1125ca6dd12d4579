#include "plyTriangles.h"

#include <algorithm>

std::optional<plyTriangles> plyTriangles::make(const plyPlan& plan) {
  plyTriangles result;
  bool behind = false;
  const std::vector<plyProperty>& properties = plan.element().properties;
  for (std::size_t i = 0; i < properties.size(); ++i) {
    const plyProperty& property = properties[i];
    if (plan.is_corners(i)) {
      const bool plain = property.count_type == plyType::uint8 &&
                         (property.type == plyType::int32 || property.type == plyType::uint32);
      if (!plain) return std::nullopt;
      behind = true;
      continue;
    }
    if (property.is_list) return std::nullopt;
    if (plan.role(i) != plyNO_ROLE) {
      const std::size_t offset = behind ? result.lead_ + 13 + result.trail_ : result.lead_;
      result.colour_[static_cast<std::size_t>(plan.role(i) - plyRED)] = Component{property.type, offset};
    }
    (behind ? result.trail_ : result.lead_) += ply_size_of(property.type);
  }
  return result;
}

template <bool swapped>
std::size_t plyTriangles::take(std::string_view bytes, std::size_t most, plyMesh& mesh) const {
  const std::size_t size = entry_size();
  std::vector<std::uint32_t>& corners = mesh.mesh()->corners;
  most = std::min(most, bytes.size() / size);
  if (most == 0 || bytes[lead_] != 3 || corners.size() + 3 * most >= annMesh::no_material) return 0;

  const std::size_t before = corners.size();
  corners.resize(before + 3 * most);
  std::uint32_t* to = corners.data() + before;
  const char* at = bytes.data() + lead_;
  std::size_t taken = 0;
  for (; taken < most && *at == 3; ++taken, at += size, to += 3) {
    std::uint32_t largest = 0;
    for (std::size_t i = 0; i < 3; ++i) {
      to[i] = ply_load<std::uint32_t, swapped>(at + 1 + 4 * i);
      largest = std::max(largest, to[i]);
    }
    if (largest >= mesh.vertex_count()) break;
  }
  corners.resize(before + 3 * taken);
  if (mesh.has_face_colours()) colours<swapped>(bytes.data(), taken, mesh);
  return taken;
}

template <bool swapped>
void plyTriangles::colours(const char* at, std::size_t count, plyMesh& mesh) const {
  for (std::size_t i = 0; i < count; ++i, at += entry_size()) {
    std::array<double, 4> components{};
    for (std::size_t k = 0; k < 4; ++k) {
      if (colour_[k]) components[k] = ply_load_any<swapped>(colour_[k]->type, at + colour_[k]->offset);
    }
    mesh.add_face_colour(components);
  }
}

template std::size_t plyTriangles::take<false>(std::string_view, std::size_t, plyMesh&) const;
template std::size_t plyTriangles::take<true>(std::string_view, std::size_t, plyMesh&) const;
