#include <array>
#include <cstddef>

#include "coResourceValue.h"
#include "velAngularUnit.h"
#include "velDisplayOption.h"
#include "velFileFormat.h"
#include "velLintorVersion.h"
#include "velLintorWideCurveOption.h"
#include "velMultipleFileOption.h"
#include "velProcessingOption.h"
#include "velRepresentationOption.h"
#include "velSolidworksReadOption.h"
#include "velStepAPOption.h"
#include "velTrimOption.h"
#include "velTypeOption.h"

// Defines one enumerated type: its names, in the order of its values, and the functions that use them.
#define VEL_OPTION_TYPE(type, ...)                                       \
  namespace {                                                            \
  constexpr std::array type##_names{__VA_ARGS__};                        \
  }                                                                      \
  void type##_strings(utStringcoDList& names) {                          \
    for (const char* name : type##_names) names.append(name);            \
  }                                                                      \
  bool co_value_from_text(const utString& text, type& value) {           \
    utStringcoDList names;                                               \
    type##_strings(names);                                               \
    int position = co_position_of_name(names, text);                     \
    if (position < 0) return false;                                      \
    value = static_cast<type>(position);                                 \
    return true;                                                         \
  }                                                                      \
  utString co_value_to_text(type value) {                                \
    auto position = static_cast<std::size_t>(value);                     \
    return position < type##_names.size() ? type##_names[position] : ""; \
  }

VEL_OPTION_TYPE(velAngularUnit, "degree", "radian", "gradian", "arc minute", "arc second", "turn")
VEL_OPTION_TYPE(velMultipleFileOption, "one file", "file per part")
VEL_OPTION_TYPE(velTrimOption, "as preferred", "model space", "parameter space")
VEL_OPTION_TYPE(velDisplayOption, "shaded", "shaded with edges", "wireframe", "hidden line")
VEL_OPTION_TYPE(velProcessingOption, "none", "check", "heal")
VEL_OPTION_TYPE(velFileFormat, "binary", "ascii")
VEL_OPTION_TYPE(velStepAPOption, "AP203", "AP214", "AP242")
VEL_OPTION_TYPE(velTypeOption, "all", "solids", "surfaces", "curves", "points")
VEL_OPTION_TYPE(velSolidworksReadOption, "exact", "facets", "both")
VEL_OPTION_TYPE(velLintorVersion, "latest", "1", "2", "3")
VEL_OPTION_TYPE(velRepresentationOption, "as is", "exact", "facets")
VEL_OPTION_TYPE(velLintorWideCurveOption, "curve", "outline", "face")
