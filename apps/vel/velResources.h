#pragma once

#include <string>
#include <vector>

#include "velResourceFile.h"
#include "velTableInstance.h"

// The contents of a resource file. Malformed lines are skipped, and so are values that have the right type but are not
// valid for their key. A missing file counts as empty.
struct velResources {
  explicit velResources(const utString& path);

  velResourceFile file;
  velTableInstance values;
  std::vector<std::string> problems;  // the skipped lines in order: "FILE, line N: reason"

 private:
  void pass_over_senseless_values(const utString& path);
};
