#pragma once

#include <optional>
#include <string>
#include <vector>

#include "threemfArchive.h"

// The targets of the relationships of a part or of the package.
struct threemfRelationships {
  std::vector<std::string> models;  // keys of model parts, in the order of the file

  // Empty, with a message, when they cannot be read, point outside the package or declare encrypted parts. A part
  // without a relationships part has no relationships.
  static std::optional<threemfRelationships> read(threemfArchive& archive, const std::string& source,
                                                  velabsOutput& output);
};
