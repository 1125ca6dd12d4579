#pragma once

#include <string>
#include <string_view>

#include "plyTypes.h"
#include "vltNumberLines.h"
#include "vltOnce.h"

// Reads the entries of the ASCII form, one on each line. Comments may be between the lines. An entry continues on the
// next line until it is complete; a list that is missing at the end of a line is empty.
//
// Functions that return false set `reason`.
class plyText {
 public:
  plyText(std::string_view body, std::size_t first_line, vltOnce& findings)
      : lines_(body, first_line), size_(body.size()), findings_(findings) {}

  // Goes to the start of an entry; false at the end of the file.
  bool begin_entry();
  // Skips extra numbers on the line, with a warning.
  void end_entry();

  bool number(plyType type, double& value) {
    if (ply_is_real(type) ? lines_.take(value) : whole_as_double(value)) return true;
    return number_elsewhere(value);
  }
  bool whole(plyType, long long& value) {
    if (lines_.take(value)) return true;
    return whole_elsewhere(value);
  }
  bool count(plyType type, plyType item, std::size_t& value);
  bool skip(plyType type, std::size_t how_many);

  std::string place() const { return "line " + std::to_string(lines_.line()); }
  const char* reason() const { return reason_.c_str(); }
  std::size_t offset() const { return lines_.offset(); }
  bool at_end() { return !begin_entry(); }

 private:
  bool whole_as_double(double& value) {
    long long number = 0;
    if (!lines_.take(number)) return lines_.take(value);
    value = static_cast<double>(number);
    return true;
  }
  bool number_elsewhere(double& value);
  bool whole_elsewhere(long long& value);
  bool on_next_line();
  bool fail_at_word();

  vltNumberLines lines_;
  std::size_t size_;
  vltOnce& findings_;
  std::string reason_;
};
