#pragma once

#include <string_view>

#include "utString.h"

// Replaces a format name that begins with "viewer", in any case, by exactly "Viewer".
inline std::string_view vln_viewer_name(std::string_view name) {
  constexpr std::string_view viewer = "Viewer";
  const bool is_viewer =
      name.size() >= viewer.size() && utString(name.substr(0, viewer.size())).case_compare(utString(viewer));
  return is_viewer ? viewer : name;
}
