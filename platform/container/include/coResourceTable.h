#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "apExport.h"
#include "coResourceBase.h"

// Resources by key. Iteration is in the order in which the keys were first added.
class VELPLATFORM_API coResourceTable {
 public:
  // Replaces an earlier resource with the same key.
  void put(std::unique_ptr<coResourceBase> resource);

  // Returns null if the key is unknown.
  const coResourceBase* find(const utString& key) const;
  std::size_t count() const { return resources_.size(); }

  // The resource at a position in iteration order; `index` must be below `count()`.
  const coResourceBase& at(std::size_t index) const { return *resources_[index]; }

 private:
  std::vector<std::unique_ptr<coResourceBase>> resources_;
  std::unordered_map<utString, std::size_t> positions_;
};
