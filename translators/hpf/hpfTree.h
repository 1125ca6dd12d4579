#pragma once

#include <vector>

#include "annDocument.h"
#include "hpfInput.h"
#include "hpfThings.h"

// The nodes of a file, by index. The functions read the current chunk of `input`; false after an error, which was
// reported.
class hpfTree {
 public:
  explicit hpfTree(annDocument& document) : document_(document) {}

  bool read_nodes(hpfInput& input, const hpfThings& things);
  bool read_instance_names(hpfInput& input);
  bool read_up_axis(hpfInput& input);

  bool has_nodes() const { return !nodes_.empty(); }

 private:
  annDocument& document_;
  std::vector<annNode*> nodes_;
};
