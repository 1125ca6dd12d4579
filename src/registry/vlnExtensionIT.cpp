#include "vlnExtensionIT.h"

#include <algorithm>

vlnExtensionIT::vlnExtensionIT(const utStringcoSet* extensions) {
  if (!extensions) return;
  std::vector<utString> unmarked;
  for (const utString& extension : *extensions) {
    if (extension.view().starts_with('*')) {
      ordered_.push_back(extension.substr(1));
    } else {
      unmarked.push_back(extension);
    }
  }
  std::reverse(ordered_.begin(), ordered_.end());
  ordered_.insert(ordered_.end(), unmarked.begin(), unmarked.end());
}

int vlnExtensionIT::operator++() {
  if (next_ == ordered_.size()) return 0;
  ++next_;
  return 1;
}
