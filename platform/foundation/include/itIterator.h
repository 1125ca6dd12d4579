#pragma once

#include <memory>
#include <vector>

#include "apLanguage.h"

// Iterates over a sequence that it does not own. Returned by value. It starts before the first element:
//
//   auto formats = set.formats();
//   while (++formats) use(formats());
//
// The sequence must not change while the iterator is in use.
template <typename T>
class itIterator {
 public:
  itIterator() = default;
  itIterator(const T* begin, const T* end) : next_(begin), end_(end) {}
  itIterator(typename std::vector<T>::const_iterator begin, typename std::vector<T>::const_iterator end)
      : itIterator(std::to_address(begin), std::to_address(end)) {}
  itIterator(const std::vector<T>& sequence) : itIterator(sequence.data(), sequence.data() + sequence.size()) {}

  // Moves to the next element. Returns 1 if there is one, 0 at the end and in every later call.
  int operator++() {
    if (next_ == end_) {
      current_ = nullptr;
      return 0;
    }
    current_ = next_++;
    return 1;
  }

  // The current element; only after a `++` that returned 1.
  const T& operator()() const { return *current_; }
  const T& operator*() const { return *current_; }

 private:
  const T* next_ = nullptr;
  const T* end_ = nullptr;
  const T* current_ = nullptr;
};
