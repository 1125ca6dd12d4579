#pragma once

#include <string>
#include <vector>

#include "Judges.h"

// A file that foreign programs see in other formats.
struct Source {
  std::string path;
  std::string format;  // "stl", "step"

  bool is_exact() const { return format == "step" || format == "iges" || format == "brep"; }
  // False where there is no program to ask, too.
  bool is_closed() const;
};

// The examples and all whole files of the corpus that `vel` reads.
std::vector<Source> foreign_sources();
