#pragma once

#include <cstddef>
#include <string>

#include "annDocument.h"
#include "vltOnce.h"

// What all model parts of a package are read with.
struct threemfReading {
  vltOnce& findings;
  double scale = 1;
  bool looks = true;                           // take colours and materials
  velLengthUnit unit = velLENGTH_UNSPECIFIED;  // that of the start part, once it is known

  void found(velabsSeverity severity, const std::string& what, bool in_start, std::size_t line) const {
    findings.count(severity, in_start ? what : what + " (in a further model part)", line);
  }
};
