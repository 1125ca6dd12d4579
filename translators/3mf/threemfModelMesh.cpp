// Parsing of the vertices and triangles of meshes.

#include <cmath>
#include <cstring>

#include "threemfModelParser.h"
#include "threemfValues.h"
#include "vltNames.h"

bool threemfModelParser::start_vertex(const char** attributes) {
  double values[3];
  unsigned seen = 0;
  for (const char** a = attributes; *a; a += 2) {
    const char* name = a[0];
    if (name[0] < 'x' || name[0] > 'z' || name[1] != '\0') {
      unknown_attribute("vertex", name);
      continue;
    }
    const unsigned axis = static_cast<unsigned>(name[0] - 'x');
    if (!threemf_number(a[1], values[axis])) {
      fail("the coordinate " + vlt_quoted(a[1]) + " is no finite number");
      return false;
    }
    seen |= 1U << axis;
  }
  if (seen != 7) {
    fail("a vertex needs three coordinates");
    return false;
  }
  const annVector point{values[0] * factor_, values[1] * factor_, values[2] * factor_};
  if (!std::isfinite(point.x) || !std::isfinite(point.y) || !std::isfinite(point.z)) {
    fail("a coordinate is too large for a number once it is scaled");
    return false;
  }
  builder_.add_vertex(point);
  return true;
}

bool threemfModelParser::start_triangle(const char** attributes) {
  std::array<std::uint32_t, 3> corners{}, looks{};
  unsigned corners_seen = 0;
  std::size_t looks_seen = 0;
  std::uint32_t group = object_group_;
  for (const char** a = attributes; *a; a += 2) {
    const char* name = a[0];
    const bool numbered = name[0] != '\0' && name[1] >= '1' && name[1] <= '3' && name[2] == '\0';
    const std::size_t at = numbered ? static_cast<std::size_t>(name[1] - '1') : 0;
    if (numbered && name[0] == 'v') {
      if (!number(name, a[1], corners[at])) return false;
      if (corners[at] >= builder_.vertex_count()) {
        fail("there is no vertex " + std::string(a[1]) + ", the mesh has " + std::to_string(builder_.vertex_count()));
        return false;
      }
      corners_seen |= 1U << at;
    } else if (numbered && name[0] == 'p') {
      if (!number(name, a[1], looks[at])) return false;
      looks_seen |= std::size_t{1} << at;
    } else if (std::strcmp(name, "pid") == 0) {
      if (!number(name, a[1], group)) return false;
    } else {
      unknown_attribute("triangle", name);
    }
  }
  if (corners_seen != 7) {
    fail("a triangle needs three vertices");
    return false;
  }
  if (corners[0] == corners[1] || corners[1] == corners[2] || corners[2] == corners[0]) {
    found(velabsWARNING, "triangles that name a vertex twice are kept");
  }
  if (!(looks_seen & 1) || !reading_.looks) {
    builder_.add_triangle(corners);
    return true;
  }
  for (std::size_t i = 1; i < 3; ++i) {
    if (!(looks_seen & (std::size_t{1} << i))) looks[i] = looks[0];
  }
  threemfMeshBuilder::Looks numbers;
  if (!read_looks(group, looks.data(), looks.size(), numbers)) return false;
  builder_.add_triangle(corners, numbers);
  return true;
}

bool threemfModelParser::read_looks(std::uint32_t id, const std::uint32_t* indices, std::size_t count,
                                    threemfMeshBuilder::Looks& looks) {
  looks.fill(threemfProperties::no_look);
  const threemfProperties::Group* group = properties_.group(id);
  if (!group) {
    fail("there is no property group " + std::to_string(id) + " before this place");
    return false;
  }
  if (group->left_out) return true;
  // Base materials cannot be blended: the first one is used for the face.
  for (std::size_t i = 0; i < looks.size(); ++i) {
    const std::uint32_t index = indices[group->colours && i < count ? i : 0];
    if (index >= group->looks.size()) {
      fail("there is no property " + std::to_string(index) + ", group " + std::to_string(id) + " has " +
           std::to_string(group->looks.size()));
      return false;
    }
    looks[i] = group->looks[index];
  }
  return true;
}
