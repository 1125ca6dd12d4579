#pragma once

#include <string>
#include <vector>

#include "velResourceFile.h"
#include "velTableInstance.h"

// What a resource file says. A line whose value is of its key's type and yet makes no sense for it is passed over like
// one that is broken. A missing file says nothing.
struct velResources {
  explicit velResources(const utString& path);

  velResourceFile file;
  velTableInstance values;
  std::vector<std::string> problems;  // what was passed over, in the order of the lines: "FILE, line N: reason"

 private:
  void pass_over_senseless_values(const utString& path);
};
