#pragma once

#include <string>
#include <string_view>

// The conversions of the default encoding, for strings without an explicit encoding.

// Appends. Bytes that are not part of valid UTF-8 become U+DC80..U+DCFF, one for each byte.
void ap_decode_utf8(std::string_view bytes, std::wstring& text);

// Appends. Returns false at the first character that UTF-8 cannot represent; `bytes` then ends before it.
bool ap_encode_utf8(std::wstring_view text, std::string& bytes);

// The number of ASCII bytes at the front.
std::size_t ap_ascii_prefix(std::string_view bytes);
