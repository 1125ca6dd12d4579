#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "plyTypes.h"
#include "velabsOutput.h"

// The header of a file describes its body: kinds of elements, each with a number of entries and the layout of an
// entry. PLY format 1.0 as published in 1994.

enum class plyForm { ascii, little_endian, big_endian };

struct plyProperty {
  std::string name;
  plyType type = plyType::float32;  // of the number, or of the items of the list
  bool is_list = false;
  plyType count_type = plyType::uint8;  // of the count before a list
};

struct plyElement {
  std::string name;
  std::uint64_t count = 0;
  std::size_t line = 0;
  bool is_first = true;  // with this name
  std::vector<plyProperty> properties;

  // The size of an entry in the binary forms with empty lists; the exact size without lists.
  std::size_t least_size() const;
  // The minimum size as text: a digit and a blank for each number; lists at the end of a line may be missing.
  std::size_t least_text() const;
  bool has_lists() const;
};

struct plyHead {
  plyForm form = plyForm::ascii;
  std::vector<plyElement> elements;
  std::size_t size = 0;       // offset of the body
  std::size_t body_line = 1;  // line number of the body

  // False, with a message, when the header is invalid, or has more entries than fit in the file.
  //
  // Lines end with LF or CR LF, or all with CR, as in the first line. The body begins directly after the last line
  // end, so its first byte may be a line feed.
  bool read(std::string_view file, velabsOutput& output);

  const plyElement* find(std::string_view name) const;
};
