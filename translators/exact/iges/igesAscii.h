#pragma once

#include <string>
#include <string_view>

// Converts a name to printable ASCII, the characters of the format: Latin letters lose their accents, dashes and
// quotes become ASCII ones, all other characters become "?". Sets `changed` when the name differs.
std::string iges_ascii(std::string_view name, bool& changed);
