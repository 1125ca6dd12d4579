#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "plyHead.h"
#include "vltOnce.h"

// The meaning of an element's properties.
enum plyRole : std::int8_t {
  plyX,
  plyY,
  plyZ,
  plyNX,
  plyNY,
  plyNZ,
  plyRED,
  plyGREEN,
  plyBLUE,
  plyOPACITY,
  plyROLES,
  plyNO_ROLE = -1
};

enum class plyKind { vertices, faces, strips, other };

// The roles of an element's properties, found once by name. Roles that only make sense together are assigned together
// or not at all. Of two properties with the same name, the first is used.
class plyPlan {
 public:
  plyPlan(const plyElement& element, plyKind kind, bool colours);

  plyKind kind() const { return kind_; }
  const plyElement& element() const { return *element_; }
  plyRole role(std::size_t property) const { return roles_[property]; }
  // True for the property that lists the vertices of a face or strip.
  bool is_corners(std::size_t property) const { return static_cast<int>(property) == corners_; }
  bool has_corners() const { return corners_ >= 0; }

  // The property with a role; -1 when there is none.
  int property_of(plyRole role) const { return properties_[static_cast<std::size_t>(role)]; }
  bool has(plyRole role) const { return property_of(role) >= 0; }

  // The full value of each colour component: 255 or 65535; 0 for real numbers, whose scale depends on their maximum.
  std::array<float, 4> full_colour() const;

  // Reports the properties without a role in one note.
  void tell_left_out(vltOnce& findings) const;

 private:
  void give_roles(bool colours);
  void take_back(plyRole first, std::size_t count);

  const plyElement* element_;
  plyKind kind_;
  bool ignores_colours_ = false;
  std::vector<plyRole> roles_;
  std::array<int, plyROLES> properties_;
  int corners_ = -1;
};

// One entry of an element: the numbers with a role, and the list of corners.
struct plyEntry {
  std::array<double, plyROLES> values{};
  std::vector<long long> corners;
};
