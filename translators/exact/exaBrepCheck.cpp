#include "exaBrepCheck.h"

#include <algorithm>
#include <array>

#include "exaBrepGeometry.h"
#include "exaBrepLocations.h"
#include "exaBrepShapes.h"

namespace {

constexpr std::array<std::string_view, 3> text_versions{
    "CASCADE Topology V1, (c) Matra-Datavision",
    "CASCADE Topology V2, (c) Matra-Datavision",
    "CASCADE Topology V3, (c) Open Cascade",
};
constexpr std::array<std::string_view, 4> binary_versions{
    "Open CASCADE Topology V1 (c)",
    "Open CASCADE Topology V2 (c)",
    "Open CASCADE Topology V3 (c)",
    "Open CASCADE Topology V4, (c) Open Cascade",
};

// The version of the first line that names one; lines before it are skipped. 0 and an error when there is none.
template <std::size_t count>
int version_of(exaBrepValues& values, const std::array<std::string_view, count>& names) {
  // The kernel stops at a line longer than this.
  constexpr std::size_t longest = 99;
  while (values.ok() && !values.at_end()) {
    const std::string_view line = values.line();
    const auto known = std::find(names.begin(), names.end(), line);
    if (known != names.end()) return static_cast<int>(known - names.begin()) + 1;
    if (line.size() > longest) break;
  }
  values.fail("no line names a version that is known here");
  return 0;
}

class Walk {
 public:
  explicit Walk(exaBrepValues& values) : values_(values) {}

  void run(bool has_ends, bool has_normals) {
    content_.has_ends = has_ends;
    content_.has_normals = has_normals;
    values_.reading("locations");
    content_.locations = exa_walk_locations(values_);
    content_.curves2d = each("Curve2ds", "2D curve", [&] { exa_walk_curve2d(values_); });
    content_.curves = each("Curves", "curve", [&] { exa_walk_curve(values_); });
    content_.polygons = each("Polygon3D", "polygon", [&] { polygon(); });
    each("PolygonOnTriangulations", "polygon on a triangulation", [&] { polygon_on_facets(); });
    content_.surfaces = each("Surfaces", "surface", [&] { exa_walk_surface(values_); });
    each("Triangulations", "triangulation", [&] { triangulation(); });
    values_.reading("shapes");
    exa_walk_shapes(values_, content_);
  }

 private:
  template <typename Item>
  std::size_t each(std::string_view section, const char* what, Item item) {
    constexpr std::size_t least = 4;
    values_.reading(what);
    const std::size_t count = values_.section(section, least);
    for (std::size_t i = 1; i <= count && values_.ok(); ++i) {
      values_.reading(what, i);
      item();
    }
    return count;
  }

  void polygon() {
    const std::size_t nodes = values_.count("nodes", 1, 0, 3);
    const bool has_parameters = values_.flag();
    values_.reals(1);
    values_.reals(nodes * (has_parameters ? 4 : 3));
  }

  // A polygon does not name its triangulation, so its node numbers are checked where an edge refers to both.
  void polygon_on_facets() {
    const std::size_t nodes = values_.count("nodes", 1, 1, 0);
    std::int64_t lowest = 1, highest = 1;
    for (std::size_t i = 0; i < nodes && values_.ok(); ++i) {
      const std::int64_t node = values_.integer();
      lowest = std::min(lowest, node);
      highest = std::max(highest, node);
    }
    if (lowest < 1 && values_.ok()) values_.fail("it refers to the node " + std::to_string(lowest));
    content_.facet_polygons.push_back(static_cast<std::size_t>(highest));
    values_.polygon_mark();
    values_.reals(1);
    if (values_.flag()) values_.reals(nodes);
  }

  void triangulation() {
    const std::int64_t node_count = values_.integer();
    const std::size_t triangles = values_.count("triangles", 0, 3, 0);
    const bool has_parameters = values_.flag();
    const bool has_normals = content_.has_normals && values_.flag();
    values_.reals(1);
    const std::size_t nodes = values_.checked(node_count, "nodes", 0, 0, has_parameters ? 5 : 3);
    values_.reals(nodes * (has_parameters ? 5 : 3));
    for (std::size_t i = 0; i < triangles && values_.ok(); ++i) {
      for (int corner = 0; corner < 3; ++corner) values_.reference("node", 1, nodes);
    }
    if (has_normals) values_.floats(3 * nodes);
    content_.triangulations.push_back(nodes);
  }

  exaBrepValues& values_;
  exaBrepContent content_;
};

}  // namespace

bool exa_is_binary_brep(std::string_view bytes) {
  constexpr std::size_t looked_at = 64;
  return bytes.substr(0, looked_at).find("Open CASCADE Topology") != bytes.npos;
}

std::string exa_brep_fault(std::string_view bytes) {
  if (exa_is_binary_brep(bytes)) {
    exaBrepBinary values(bytes);
    const int version = version_of(values, binary_versions);
    values.set_version(version);
    if (values.ok()) Walk(values).run(version == 2 || version == 3, version >= 4);
    return values.fault();
  }
  exaBrepText values(bytes);
  const int version = version_of(values, text_versions);
  if (values.ok()) Walk(values).run(version == 2, version >= 3);
  return values.fault();
}
