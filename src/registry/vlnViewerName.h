#pragma once

#include "utString.h"

// Every format name that begins with "viewer", in any case, stands for the one viewer and becomes exactly "Viewer".
inline utString vln_viewer_name(const utString& name) {
  const bool is_viewer = name.length() >= 6 && name.substr(0, 6).case_compare("viewer");
  return is_viewer ? utString("Viewer") : name;
}
