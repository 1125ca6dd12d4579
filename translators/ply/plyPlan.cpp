#include "plyPlan.h"

#include <algorithm>

#include "vltNames.h"

namespace {

struct Name {
  std::string_view text;
  plyRole role;
};
constexpr Name names[] = {{"x", plyX},
                          {"y", plyY},
                          {"z", plyZ},
                          {"nx", plyNX},
                          {"ny", plyNY},
                          {"nz", plyNZ},
                          {"red", plyRED},
                          {"green", plyGREEN},
                          {"blue", plyBLUE},
                          {"alpha", plyOPACITY},
                          {"diffuse_red", plyRED},
                          {"diffuse_green", plyGREEN},
                          {"diffuse_blue", plyBLUE},
                          {"diffuse_alpha", plyOPACITY}};

plyRole role_of(std::string_view name) {
  for (const Name& each : names) {
    if (each.text == name) return each.role;
  }
  return plyNO_ROLE;
}

// The maximum number of properties in a note; scans may have dozens.
constexpr std::size_t most_names = 8;

bool is_colour(plyRole role) {
  return role >= plyRED && role <= plyOPACITY;
}

}  // namespace

plyPlan::plyPlan(const plyElement& element, plyKind kind, bool colours)
    : element_(&element), kind_(kind), roles_(element.properties.size(), plyNO_ROLE) {
  properties_.fill(-1);
  give_roles(colours);
  for (plyRole first : {plyX, plyNX, plyRED}) {
    const bool whole = std::all_of(properties_.begin() + first, properties_.begin() + first + 3,
                                   [](int property) { return property >= 0; });
    if (!whole) take_back(first, first == plyRED ? 4 : 3);
  }
}

void plyPlan::give_roles(bool colours) {
  for (std::size_t i = 0; i < roles_.size(); ++i) {
    const plyProperty& property = element_->properties[i];
    if (property.is_list) {
      const bool lists_corners = kind_ == plyKind::faces || kind_ == plyKind::strips;
      const bool named = property.name == "vertex_indices" || property.name == "vertex_index";
      if (lists_corners && named && corners_ < 0) corners_ = static_cast<int>(i);
      continue;
    }
    const plyRole role = role_of(property.name);
    const bool fits = kind_ == plyKind::vertices || (kind_ == plyKind::faces && is_colour(role));
    if (role == plyNO_ROLE || !fits || has(role)) continue;
    if (is_colour(role) && !colours) {
      ignores_colours_ = true;
      continue;
    }
    roles_[i] = role;
    properties_[static_cast<std::size_t>(role)] = static_cast<int>(i);
  }
}

void plyPlan::take_back(plyRole first, std::size_t count) {
  for (std::size_t role = static_cast<std::size_t>(first); count > 0; ++role, --count) {
    if (properties_[role] >= 0) roles_[static_cast<std::size_t>(properties_[role])] = plyNO_ROLE;
    properties_[role] = -1;
  }
}

std::array<float, 4> plyPlan::full_colour() const {
  std::array<float, 4> result{};
  for (std::size_t i = 0; i < 4; ++i) {
    const int property = properties_[plyRED + i];
    if (property < 0) continue;
    const plyType type = element_->properties[static_cast<std::size_t>(property)].type;
    result[i] = ply_is_real(type) ? 0.0F : type == plyType::uint16 ? 65535.0F : 255.0F;
  }
  return result;
}

void plyPlan::tell_left_out(vltOnce& findings) const {
  if (kind_ == plyKind::other) {
    findings.count(velabsNOTE, "the element " + vlt_quoted(element_->name) + " is left out", element_->line);
    return;
  }
  std::string listed;
  std::size_t count = 0;
  for (std::size_t i = 0; i < roles_.size(); ++i) {
    const plyProperty& property = element_->properties[i];
    if (role(i) != plyNO_ROLE || is_corners(i)) continue;
    if (ignores_colours_ && is_colour(role_of(property.name))) continue;
    if (++count <= most_names) listed += (count > 1 ? ", " : "") + vlt_quoted(property.name);
  }
  if (count == 0) return;
  if (count > most_names) listed += " and " + std::to_string(count - most_names) + " others";
  findings.count(velabsNOTE, (count == 1 ? "the property " : "the properties ") + listed + " of the element " +
                                 vlt_quoted(element_->name) + (count == 1 ? " is" : " are") + " left out");
}
