#pragma once

#include <set>
#include <string>

#include "utString.h"

// The names of files in one directory that differ by a number. Stem "out" and ending ".mtl" give "out.mtl" for number
// 0, "out_1.mtl", "out_2.mtl" and so on.
struct velabsNumberedNames {
  std::string stem;
  std::string ending;

  std::string name(unsigned number) const { return stem + (number > 0 ? "_" + std::to_string(number) : "") + ending; }
};

// The numbers of those names that the bytes of a file contain, unchanged or with characters written as "%20" or
// "\u0020". Empty if the file cannot be read.
std::set<unsigned> velabs_named_in(const utString& file, const velabsNumberedNames& names);
