#pragma once

#include <cstddef>
#include <unordered_set>
#include <vector>

#include "itIterator.h"
#include "utString.h"

// A set that hands its members out in the order in which they were added first.
template <typename T>
class coSet {
 public:
  // The suite sizes its sets by a first room and a growth in percent; the first one is reserved.
  explicit coSet(std::size_t room = 4, int growth_percent = 50) {
    static_cast<void>(growth_percent);
    members_.reserve(room);
  }

  // False when it was there already.
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
