#pragma once

#include <cstddef>
#include <string>

#include "annDocument.h"
#include "vltOnce.h"

// Settings shared by all model parts of a package.
struct threemfReading {
  vltOnce& findings;
  double scale = 1;
  bool looks = true;                           // read colours and materials
  velLengthUnit unit = velLENGTH_UNSPECIFIED;  // the unit of the start part, once it is known

  void found(velabsSeverity severity, const std::string& what, bool in_start, std::size_t line) const {
    findings.count(severity, in_start ? what : what + " (in a further model part)", line);
  }
};
