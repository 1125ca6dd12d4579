#pragma once

#include <cstddef>
#include <unordered_set>
#include <vector>

#include "itIterator.h"
#include "utString.h"

// A set that iterates in the order in which its members were first added.
template <typename T>
class coSet {
 public:
  // The suite gives its sets an initial capacity and a growth in percent; only the capacity is used.
  explicit coSet(std::size_t room = 4, int growth_percent = 50) {
    static_cast<void>(growth_percent);
    members_.reserve(room);
  }

  // Returns false if the set already contains `member`.
  bool add(const T& member) {
    if (!index_.insert(member).second) return false;
    members_.push_back(member);
    return true;
  }
  bool contains(const T& member) const { return index_.count(member) != 0; }
  std::size_t count() const { return members_.size(); }
  itIterator<T> iterator() const { return itIterator<T>(members_); }

  auto begin() const { return members_.begin(); }
  auto end() const { return members_.end(); }

 private:
  std::vector<T> members_;
  std::unordered_set<T> index_;
};

using intcoSet = coSet<int>;
using utStringcoSet = coSet<utString>;
