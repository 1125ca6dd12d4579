#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Handling of text with unchecked bytes: names in files and file names.

// The number of bytes of the UTF-8 character at the start of a text; 0 when it is invalid or empty.
std::size_t vlt_utf8_size(std::string_view text);

// The longest start of a text that has only whole characters and at most `most` bytes.
std::string_view vlt_utf8_front(std::string_view text, std::size_t most);

bool vlt_is_utf8(std::string_view text);

// Converts text to valid UTF-8 for writing: invalid bytes become U+FFFD.
std::string vlt_as_utf8(std::string_view text);

// Converts text in UTF-8 or Latin-1 to UTF-8: bytes that are not valid UTF-8 are read as Latin-1.
std::string vlt_utf8_or_latin1(std::string_view text);

// The code of the character at the start of a text, which has `size` bytes.
char32_t vlt_utf8_code(std::string_view text, std::size_t size);
