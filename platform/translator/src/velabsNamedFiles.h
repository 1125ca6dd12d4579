#pragma once

#include <set>
#include <string>

#include "utString.h"

// Files of one directory that differ by a number: stem "out" and ending ".mtl" stand for "out.mtl", which is number 0,
// "out_1.mtl", "out_2.mtl" and so on.
struct velabsNumberedNames {
  std::string stem;
  std::string ending;

  std::string name(unsigned number) const { return stem + (number > 0 ? "_" + std::to_string(number) : "") + ending; }
};

// The numbers of those that the bytes of a file name, as they stand or with characters written as "%20" or "\u0020".
// None for a file that cannot be read.
std::set<unsigned> velabs_named_in(const utString& file, const velabsNumberedNames& names);
