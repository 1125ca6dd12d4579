#pragma once

#include <string>
#include <string_view>

// The conversions behind the default encoding, for the strings that use it without being told of an encoding.

// Appends. Bytes that are not part of valid UTF-8 become U+DC80..U+DCFF, one for each byte.
void ap_decode_utf8(std::string_view bytes, std::wstring& text);

// Appends. False at the first character that UTF-8 cannot hold; `bytes` then ends before it.
bool ap_encode_utf8(std::wstring_view text, std::string& bytes);

// How many bytes from the front are ASCII.
std::size_t ap_ascii_prefix(std::string_view bytes);
