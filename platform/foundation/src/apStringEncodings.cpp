#include "apStringEncodings.h"

#include <cstdint>

#include "apUtf8.h"

namespace {

bool encode_below(std::uint32_t limit, std::wstring_view text, std::string& bytes) {
  for (wchar_t character : text) {
    if (static_cast<std::uint32_t>(character) >= limit) return false;
    bytes.push_back(static_cast<char>(character));
  }
  return true;
}

void decode_bytes(std::string_view bytes, std::wstring& text) {
  for (char byte : bytes) text.push_back(static_cast<wchar_t>(static_cast<unsigned char>(byte)));
}

}  // namespace

void apUtf8Encoding::encode(std::wstring_view text, std::string& bytes, apStatus& status) const {
  if (!ap_encode_utf8(text, bytes)) status.set_failure("a character has no UTF-8 form");
}

void apUtf8Encoding::decode(std::string_view bytes, std::wstring& text, apStatus&) const {
  ap_decode_utf8(bytes, text);
}

void apLatin1Encoding::encode(std::wstring_view text, std::string& bytes, apStatus& status) const {
  if (!encode_below(0x100, text, bytes)) status.set_failure("a character has no ISO-8859-1 form");
}

void apLatin1Encoding::decode(std::string_view bytes, std::wstring& text, apStatus&) const {
  decode_bytes(bytes, text);
}

void apAsciiEncoding::encode(std::wstring_view text, std::string& bytes, apStatus& status) const {
  if (!encode_below(0x80, text, bytes)) status.set_failure("a character has no ASCII form");
}

void apAsciiEncoding::decode(std::string_view bytes, std::wstring& text, apStatus& status) const {
  const std::size_t plain = ap_ascii_prefix(bytes);
  decode_bytes(bytes.substr(0, plain), text);
  if (plain < bytes.size()) status.set_failure("a byte is not ASCII");
}
