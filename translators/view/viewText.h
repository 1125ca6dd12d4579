#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "annColour.h"
#include "velabsOfStream.h"

// Escaping of text for a page.

// A quoted JSON string. "<", ">" and "&" are escaped, so that the text cannot end or begin an element. Bytes that are
// not UTF-8 become U+FFFD.
std::string view_json_text(std::string_view text);

// The shortest text that reads back as the same number; null for a number that is not finite.
std::string view_json_number(double value);
std::string view_json_number(float value);

// Escapes a text for the content of an element.
std::string view_html_text(std::string_view text);

// Writes bytes as base64 into elements. Each element is limited to a text length that browsers process fast.
class viewData {
 public:
  explicit viewData(velabsOfStream& stream) : stream_(stream) {}

  void write(std::string_view bytes);
  // Call once, at the end.
  void finish();

 private:
  void write_threes(std::string_view bytes);
  void encode(std::string_view bytes);

  velabsOfStream& stream_;
  std::string left_;            // fewer than three bytes
  std::size_t in_element_ = 0;  // bytes in the open element; 0 when none is open
};
