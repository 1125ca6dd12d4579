#pragma once

#include <cstddef>
#include <vector>

#include "coSet.h"
#include "utString.h"
#include "vlnExport.h"

// Iterates over a translator's extensions, the default one first. An extension with a leading "*" is moved to the front
// without the "*"; with several of them the last one is first. The iterator starts before the first extension. A null
// set is treated as empty.
class VLN_API vlnExtensionIT {
 public:
  explicit vlnExtensionIT(const utStringcoSet* extensions);

  int operator++();
  const utString& operator()() const { return ordered_[next_ - 1]; }

 private:
  std::vector<utString> ordered_;
  std::size_t next_ = 0;
};
