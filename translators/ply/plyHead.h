#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "plyTypes.h"
#include "velabsOutput.h"

// What the head of a file says of its body: kinds of elements, each with a number of entries and what an entry is made
// of. PLY format 1.0 as published in 1994.

enum class plyForm { ascii, little_endian, big_endian };

struct plyProperty {
  std::string name;
  plyType type = plyType::float32;  // of the number, or of each in the list
  bool is_list = false;
  plyType count_type = plyType::uint8;  // of the number of items in front of a list
};

struct plyElement {
  std::string name;
  std::uint64_t count = 0;
  std::size_t line = 0;
  bool is_first = true;  // of its name
  std::vector<plyProperty> properties;

  // The bytes that an entry takes in the binary forms when its lists are empty, which is all when it has none.
  std::size_t least_size() const;
  // The same for text, where a number takes a digit and a blank, and lists may be left out at the end of a line.
  std::size_t least_text() const;
  bool has_lists() const;
};

struct plyHead {
  plyForm form = plyForm::ascii;
  std::vector<plyElement> elements;
  std::size_t size = 0;       // bytes up to the body
  std::size_t body_line = 1;  // where the body begins

  // False, and a message, when it cannot be understood, or counts more entries than the file has room for.
  //
  // Lines end with LF or CR LF, or all with CR: the first line tells. The body begins right behind the break of the
  // last line, so that a body whose first byte is a line feed is safe.
  bool read(std::string_view file, velabsOutput& output);

  const plyElement* find(std::string_view name) const;
};
