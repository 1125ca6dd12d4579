#pragma once

#include <vector>

#include "utString.h"

// The name for a file beside a target: the target's with another extension, "out.mtl" for instance, or, where that one
// is taken, "out_1.mtl", "out_2.mtl" and so on.
//
// A file that is there already is replaced only when it belongs to the target that is replaced with it: the old target
// names it, no input of the work is it or names it, and it is no link to something elsewhere. Which files a file names
// is seen from its bytes, whatever its format: a name counts as it stands and with characters written as "%20" or
// "\u0020". Files are read in pieces, and only when there is something that might be replaced.
struct velabsCompanionName {
  velabsCompanionName(const utString& target, const utString& extension, const std::vector<utString>& inputs);

  utString wished;  // the first one
  utString name;    // the one to use
};
