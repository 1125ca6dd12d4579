#include "vltUtf8.h"

#include <cstdint>
#include <cstring>

namespace {

std::size_t ascii_size(std::string_view text) {
  std::size_t at = 0;
  for (std::uint64_t eight = 0; text.size() - at >= sizeof eight; at += sizeof eight) {
    std::memcpy(&eight, text.data() + at, sizeof eight);
    if (eight & 0x8080808080808080U) break;
  }
  while (at < text.size() && static_cast<unsigned char>(text[at]) < 0x80) ++at;
  return at;
}

template <typename Repair>
std::string repaired(std::string_view text, Repair repair) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    std::size_t size = ascii_size(text);
    if (size == 0) size = vlt_utf8_size(text);
    if (size > 0) {
      result += text.substr(0, size);
    } else {
      repair(result, static_cast<unsigned char>(text.front()));
      size = 1;
    }
    text.remove_prefix(size);
  }
  return result;
}

}  // namespace

std::size_t vlt_utf8_size(std::string_view text) {
  if (text.empty()) return 0;
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned lead = byte(0);
  if (lead < 0x80) return 1;
  const std::size_t size = lead >= 0xf0 ? 4 : lead >= 0xe0 ? 3 : 2;
  if (lead < 0xc2 || lead > 0xf4 || text.size() < size) return 0;
  for (std::size_t i = 1; i < size; ++i) {
    if ((byte(i) & 0xc0) != 0x80) return 0;
  }
  // Overlong encodings, surrogates, or codes above the maximum.
  const unsigned second = byte(1);
  const bool bad = (lead == 0xe0 && second < 0xa0) || (lead == 0xed && second >= 0xa0) ||
                   (lead == 0xf0 && second < 0x90) || (lead == 0xf4 && second >= 0x90);
  return bad ? 0 : size;
}

char32_t vlt_utf8_code(std::string_view text, std::size_t size) {
  const auto lead = static_cast<unsigned char>(text[0]);
  if (size == 1) return lead;
  char32_t code = lead & (0xffU >> (size + 1));
  for (std::size_t i = 1; i < size; ++i) code = code << 6 | (static_cast<unsigned char>(text[i]) & 0x3fU);
  return code;
}

std::string_view vlt_utf8_front(std::string_view text, std::size_t most) {
  if (text.size() <= most) return text;
  std::size_t end = most;
  while (end > 0 && most - end < 3 && (static_cast<unsigned char>(text[end]) & 0xc0) == 0x80) --end;
  return text.substr(0, end);
}

bool vlt_is_utf8(std::string_view text) {
  while (!text.empty()) {
    std::size_t size = ascii_size(text);
    if (size == 0) size = vlt_utf8_size(text);
    if (size == 0) return false;
    text.remove_prefix(size);
  }
  return true;
}

std::string vlt_as_utf8(std::string_view text) {
  return repaired(text, [](std::string& result, unsigned char) { result += "\xEF\xBF\xBD"; });
}

std::string vlt_utf8_or_latin1(std::string_view text) {
  return repaired(text, [](std::string& result, unsigned char byte) {
    result += static_cast<char>(0xc0 | byte >> 6);
    result += static_cast<char>(0x80 | (byte & 0x3f));
  });
}
