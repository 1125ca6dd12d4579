#include "coResourceTable.h"

#include <utility>

void coResourceTable::put(std::unique_ptr<coResourceBase> resource) {
  const auto [position, added] = positions_.try_emplace(resource->key(), resources_.size());
  if (added) {
    resources_.push_back(std::move(resource));
  } else {
    resources_[position->second] = std::move(resource);
  }
}

const coResourceBase* coResourceTable::find(const utString& key) const {
  auto position = positions_.find(key);
  return position == positions_.end() ? nullptr : resources_[position->second].get();
}
