#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "apExport.h"
#include "coResourceBase.h"

// Resources by key, walked in the order in which their keys were put first.
class VELPLATFORM_API coResourceTable {
 public:
  // Takes the place of an earlier resource with the same key.
  void put(std::unique_ptr<coResourceBase> resource);

  // Null when there is none.
  const coResourceBase* find(const utString& key) const;
  std::size_t count() const { return resources_.size(); }

  // The resource at a position of the walk; `index` must be below `count()`.
  const coResourceBase& at(std::size_t index) const { return *resources_[index]; }

 private:
  std::vector<std::unique_ptr<coResourceBase>> resources_;
  std::unordered_map<utString, std::size_t> positions_;
};
