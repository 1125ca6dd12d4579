#pragma once

#include <cmath>
#include <limits>
#include <string>
#include <string_view>

#include "plyTypes.h"

// Reads the entries of the binary forms; same interface as plyText.
template <bool swap>
class plyBinary {
 public:
  static constexpr bool swapped = swap;

  // `at` is the offset of the body in the file.
  plyBinary(std::string_view file, std::size_t at) : file_(file), at_(at) {}

  bool begin_entry() { return true; }
  void end_entry() {}

  bool number(plyType type, double& value) {
    if (!has(ply_size_of(type))) return false;
    value = ply_load_any<swap>(type, file_.data() + at_);
    at_ += ply_size_of(type);
    return true;
  }
  // Real numbers that are not integers become a value that no caller accepts.
  bool whole(plyType type, long long& value) {
    double number = 0;
    if (!this->number(type, number)) return false;
    const bool usable = number == std::floor(number) && std::fabs(number) < 9e15;
    value = usable ? static_cast<long long>(number) : std::numeric_limits<long long>::min();
    return true;
  }
  bool count(plyType type, plyType item, std::size_t& value) {
    long long number = 0;
    if (!whole(type, number)) return false;
    if (number == std::numeric_limits<long long>::min()) {
      reason_ = "the length of a list is no whole number";
      return false;
    }
    if (number < 0 || static_cast<unsigned long long>(number) > left() / ply_size_of(item)) {
      reason_ = "a list of " + std::to_string(number) + " items does not fit into the file";
      return false;
    }
    value = static_cast<std::size_t>(number);
    return true;
  }
  bool skip(plyType type, std::size_t how_many) {
    if (how_many > left() / ply_size_of(type)) return has(left() + 1);
    at_ += how_many * ply_size_of(type);
    return true;
  }

  std::string place() const { return "byte " + std::to_string(at_); }
  const char* reason() const { return reason_.c_str(); }
  std::size_t offset() const { return at_; }
  bool at_end() const { return left() == 0; }

  // For readers of several entries at once.
  std::string_view rest() const { return file_.substr(at_); }
  void advance(std::size_t bytes) { at_ += bytes; }

 private:
  std::size_t left() const { return file_.size() - at_; }
  bool has(std::size_t bytes) {
    if (bytes <= left()) return true;
    reason_ = "the file ends here";
    return false;
  }

  std::string_view file_;
  std::size_t at_;
  std::string reason_;
};
