#include "vlnExtensionIT.h"

#include <algorithm>

vlnExtensionIT::vlnExtensionIT(const utStringcoSet* extensions) {
  for (const utString& extension : *extensions) {
    const bool is_default = extension.view().starts_with('*');
    ordered_.push_back(is_default ? extension.substr(1) : extension);
    if (is_default) std::rotate(ordered_.begin(), ordered_.end() - 1, ordered_.end());
  }
}

int vlnExtensionIT::operator++() {
  if (next_ == ordered_.size()) return 0;
  ++next_;
  return 1;
}
