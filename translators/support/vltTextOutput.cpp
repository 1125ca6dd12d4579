#include "vltTextOutput.h"

#include <charconv>
#include <cstring>

#include "apNumberText.h"

void vltTextOutput::text(std::string_view text) {
  if (text.size() > ap_number_room) {
    stream_.write(text);
    return;
  }
  std::memcpy(stream_.reserve(ap_number_room), text.data(), text.size());
  stream_.advance(text.size());
}

void vltTextOutput::number(double value) {
  char* begin = stream_.reserve(ap_number_room);
  char* end = digits_ == 0
                  ? ap_write_number(begin, value)
                  : std::to_chars(begin, begin + ap_number_room, value, std::chars_format::general, digits_).ptr;
  stream_.advance(static_cast<std::size_t>(end - begin));
}

void vltTextOutput::number(float value) {
  char* begin = stream_.reserve(ap_number_room);
  stream_.advance(static_cast<std::size_t>(ap_write_number(begin, value) - begin));
}

void vltTextOutput::number(std::size_t value) {
  char* begin = stream_.reserve(ap_number_room);
  stream_.advance(static_cast<std::size_t>(std::to_chars(begin, begin + ap_number_room, value).ptr - begin));
}

std::optional<int> vlt_digits(const velTableInstance& resources, velabsOutput& output) {
  const int digits = resources.value<int>("DIGITS", 0);
  if (digits >= 0 && digits <= 17) return digits;
  output.message(velabsERROR, "DIGITS must be a number from 0 to 17");
  return std::nullopt;
}
