#pragma once

#include <cstddef>
#include <vector>

#include "coSet.h"
#include "utString.h"
#include "vlnExport.h"

// A walk over a translator's extensions, the default one first: an extension marked with a leading "*" loses the mark
// and goes to the front, so of several marked ones the last comes first. Stands before the first one at the start. A
// null set has none.
class VLN_API vlnExtensionIT {
 public:
  explicit vlnExtensionIT(const utStringcoSet* extensions);

  int operator++();
  const utString& operator()() const { return ordered_[next_ - 1]; }

 private:
  std::vector<utString> ordered_;
  std::size_t next_ = 0;
};
