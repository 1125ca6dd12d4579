#pragma once

#include <cstdint>
#include <string_view>

#include "hpfLayout.h"
#include "utString.h"

// The names of a chunk, one behind the other, to be taken in their order.
class hpfNames {
 public:
  explicit hpfNames(std::string_view text) : rest_(text) {}

  // False when there is not so much left.
  bool take(std::uint64_t length, utString& name) {
    if (length == hpf_no_name) return true;
    if (length > rest_.size()) return false;
    name = utString(rest_.substr(0, length));
    rest_.remove_prefix(length);
    return true;
  }

  bool empty() const { return rest_.empty(); }

 private:
  std::string_view rest_;
};
