#pragma once

#include <vector>

#include "utString.h"

// The name for a sidecar file: the target's with another extension, for example "out.mtl", or, if that is taken,
// "out_1.mtl", "out_2.mtl" and so on.
//
// An existing file is replaced only if it belongs to the target that is replaced with it. It does if the old target
// names it, no input is that file or names it, and it is not a link. The bytes of a file are searched for such names,
// whatever its format: unchanged and with characters written as "%20" or "\u0020". Files are read in pieces, and only
// if there is a file that might be replaced.
struct velabsCompanionName {
  velabsCompanionName(const utString& target, const utString& extension, const std::vector<utString>& inputs);

  utString wished;  // the preferred name
  utString name;    // the one to use
};
