#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Text whose bytes somebody else chose: names from files, names of files.

// How many bytes the character at the front of a text takes in UTF-8; 0 when there is none.
std::size_t vlt_utf8_size(std::string_view text);

// As many whole characters from the front as fit into so many bytes.
std::string_view vlt_utf8_front(std::string_view text, std::size_t most);

bool vlt_is_utf8(std::string_view text);

// For writing UTF-8: each byte that is part of none becomes U+FFFD.
std::string vlt_as_utf8(std::string_view text);

// For reading text that may be in UTF-8 or in Latin 1: each byte that is part of no UTF-8 is taken for Latin 1.
std::string vlt_utf8_or_latin1(std::string_view text);

// The code of a character that takes `size` bytes at the front.
char32_t vlt_utf8_code(std::string_view text, std::size_t size);
