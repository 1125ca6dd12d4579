#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "annColour.h"
#include "velabsOfStream.h"

// Text that may stand inside a page.

// A JSON string in quotes. "<", ">" and "&" are escaped, so that nothing in it ends the element that holds it or begins
// another; bytes that are no UTF-8 come out as U+FFFD.
std::string view_json_text(std::string_view text);

// The shortest text that reads back as the same number; null for what is no finite one.
std::string view_json_number(double value);
std::string view_json_number(float value);

// The text as the content of an element.
std::string view_html_text(std::string_view text);

// Bytes in elements that hold them in base64. They are cut so that no element is longer than browsers like their texts.
class viewData {
 public:
  explicit viewData(velabsOfStream& stream) : stream_(stream) {}

  void write(std::string_view bytes);
  // Once, at the end.
  void finish();

 private:
  void write_threes(std::string_view bytes);
  void encode(std::string_view bytes);

  velabsOfStream& stream_;
  std::string left_;            // fewer than three bytes
  std::size_t in_element_ = 0;  // bytes; 0 before one is begun
};
