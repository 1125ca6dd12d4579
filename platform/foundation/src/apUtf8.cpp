#include "apUtf8.h"

#include <cstdint>
#include <cstring>

namespace {

constexpr std::uint32_t escape_base = 0xDC00;  // plus the byte, which is 0x80 or above

bool is_continuation(unsigned char byte) {
  return (byte & 0xC0) == 0x80;
}

// The length of the valid sequence of two to four bytes at the front, and its code point; 0 if the sequence is invalid.
// The range of the second byte excludes overlong forms, surrogates and values beyond Unicode.
std::size_t take_sequence(std::string_view bytes, std::uint32_t& code) {
  auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const unsigned char lead = byte(0);
  std::size_t length = 0;
  if (lead >= 0xC2 && lead <= 0xDF) length = 2;
  if (lead >= 0xE0 && lead <= 0xEF) length = 3;
  if (lead >= 0xF0 && lead <= 0xF4) length = 4;
  if (length == 0 || bytes.size() < length) return 0;

  unsigned char low = 0x80;
  unsigned char high = 0xBF;
  if (lead == 0xE0) low = 0xA0;
  if (lead == 0xED) high = 0x9F;
  if (lead == 0xF0) low = 0x90;
  if (lead == 0xF4) high = 0x8F;
  if (byte(1) < low || byte(1) > high) return 0;

  code = lead & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if (!is_continuation(byte(i))) return 0;
    code = code << 6 | (byte(i) & 0x3Fu);
  }
  return length;
}

std::size_t ascii_prefix(std::wstring_view text) {
  std::size_t i = 0;
  while (i < text.size() && static_cast<std::uint32_t>(text[i]) < 0x80) ++i;
  return i;
}

void append_sequence(std::uint32_t code, std::string& bytes) {
  auto add = [&](std::uint32_t byte) { bytes.push_back(static_cast<char>(byte)); };
  if (code < 0x800) {
    add(0xC0 | code >> 6);
  } else if (code < 0x10000) {
    add(0xE0 | code >> 12);
    add(0x80 | (code >> 6 & 0x3F));
  } else {
    add(0xF0 | code >> 18);
    add(0x80 | (code >> 12 & 0x3F));
    add(0x80 | (code >> 6 & 0x3F));
  }
  add(0x80 | (code & 0x3F));
}

}  // namespace

std::size_t ap_ascii_prefix(std::string_view bytes) {
  constexpr std::uint64_t high_bits = 0x8080808080808080u;
  std::size_t i = 0;
  for (; i + 8 <= bytes.size(); i += 8) {
    std::uint64_t word;
    std::memcpy(&word, bytes.data() + i, 8);
    if (word & high_bits) break;
  }
  while (i < bytes.size() && static_cast<unsigned char>(bytes[i]) < 0x80) ++i;
  return i;
}

void ap_decode_utf8(std::string_view bytes, std::wstring& text) {
  while (!bytes.empty()) {
    const std::size_t plain = ap_ascii_prefix(bytes);
    const std::size_t start = text.size();
    text.resize(start + plain);
    for (std::size_t i = 0; i < plain; ++i) text[start + i] = static_cast<wchar_t>(bytes[i]);
    bytes.remove_prefix(plain);

    while (!bytes.empty() && static_cast<unsigned char>(bytes.front()) >= 0x80) {
      std::uint32_t code = 0;
      std::size_t length = take_sequence(bytes, code);
      if (length == 0) {
        code = escape_base + static_cast<unsigned char>(bytes.front());
        length = 1;
      }
      text.push_back(static_cast<wchar_t>(code));
      bytes.remove_prefix(length);
    }
  }
}

bool ap_encode_utf8(std::wstring_view text, std::string& bytes) {
  while (!text.empty()) {
    const std::size_t plain = ascii_prefix(text);
    const std::size_t start = bytes.size();
    bytes.resize(start + plain);
    for (std::size_t i = 0; i < plain; ++i) bytes[start + i] = static_cast<char>(text[i]);
    text.remove_prefix(plain);

    while (!text.empty() && static_cast<std::uint32_t>(text.front()) >= 0x80) {
      const std::uint32_t code = static_cast<char32_t>(text.front());
      const bool escaped = code >= escape_base + 0x80 && code <= escape_base + 0xFF;
      const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
      if (code > 0x10FFFF || (surrogate && !escaped)) return false;
      if (escaped) {
        bytes.push_back(static_cast<char>(code - escape_base));
      } else {
        append_sequence(code, bytes);
      }
      text.remove_prefix(1);
    }
  }
  return true;
}
