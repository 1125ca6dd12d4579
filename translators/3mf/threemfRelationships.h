#pragma once

#include <optional>
#include <string>
#include <vector>

#include "threemfArchive.h"

// What the relationships of a part, or of the package, lead to.
struct threemfRelationships {
  std::vector<std::string> models;  // keys of model parts, in the order of the file

  // Nothing, and a message, when they cannot be read, lead out of the package or say that parts are encrypted. A part
  // without relationships has none.
  static std::optional<threemfRelationships> read(threemfArchive& archive, const std::string& source,
                                                  velabsOutput& output);
};
