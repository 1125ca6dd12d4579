#include "threemfExtensions.h"

#include "threemfFormat.h"

namespace {

struct Known {
  std::string_view name;  // the namespace without its date
  threemfExtension extension;
};

constexpr Known known[] = {
    {"beamlattice", {threemfExtension::ADDS_GEOMETRY, "beams and balls"}},
    {"beamlattice/balls", {threemfExtension::ADDS_GEOMETRY, "beams and balls"}},
    {"slice", {threemfExtension::KEEPS_GEOMETRY, "slices"}},
    {"trianglesets", {threemfExtension::KEEPS_GEOMETRY, "sets of triangles"}},
    {"securecontent", {threemfExtension::KEEPS_GEOMETRY, "keys"}},
    {"displacement", {threemfExtension::REPLACES_GEOMETRY, "displaced ones (displacement)"}},
    {"booleanoperations", {threemfExtension::REPLACES_GEOMETRY, "unions and differences of them (boolean operations)"}},
    {"volumetric", {threemfExtension::REPLACES_GEOMETRY, "functions in space (volumetric)"}},
    {"implicit", {threemfExtension::REPLACES_GEOMETRY, "functions in space (implicit)"}},
};

}  // namespace

threemfExtension threemf_extension(std::string_view uri) {
  if (uri == THREEMF_CORE || uri == THREEMF_MATERIALS || uri == THREEMF_PRODUCTION || uri == THREEMF_INSTANCE) {
    return {threemfExtension::READ, {}};
  }
  constexpr std::string_view published = "/3dmanufacturing/";
  const std::size_t start = uri.find(published);
  if (start == uri.npos) return {threemfExtension::UNKNOWN, {}};
  uri.remove_prefix(start + published.size());
  for (const Known& candidate : known) {
    if (uri.starts_with(candidate.name) && uri.substr(candidate.name.size()).starts_with("/2")) {
      return candidate.extension;
    }
  }
  return {threemfExtension::UNKNOWN, {}};
}
