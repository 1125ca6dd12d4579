#pragma once

#include <cstddef>
#include <vector>

#include "apString.h"
#include "itIterator.h"
#include "utString.h"

// A list that grows at its end.
template <typename T>
class coDList {
 public:
  void append(const T& element) {
    if (elements_.empty()) elements_.reserve(4);
    elements_.push_back(element);
  }
  void clear() { elements_.clear(); }
  std::size_t count() const { return elements_.size(); }
  bool empty() const { return elements_.empty(); }

  // `index` must be below `count()`.
  const T& operator[](std::size_t index) const { return elements_[index]; }
  itIterator<T> iterator() const { return itIterator<T>(elements_); }

  auto begin() const { return elements_.begin(); }
  auto end() const { return elements_.end(); }

  friend bool operator==(const coDList&, const coDList&) = default;

 private:
  std::vector<T> elements_;
};

using intcoDList = coDList<int>;
using utStringcoDList = coDList<utString>;
using apStringcoDList = coDList<apString>;
