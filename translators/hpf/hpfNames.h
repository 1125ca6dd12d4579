#pragma once

#include <cstdint>
#include <string_view>

#include "hpfLayout.h"
#include "utString.h"

// Reads the names of a chunk, which are stored without separators, in order.
class hpfNames {
 public:
  explicit hpfNames(std::string_view text) : rest_(text) {}

  // False when fewer bytes are left.
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
