#pragma once

#include <string>
#include <string_view>

// A name in the characters of the format, which are printable ASCII: Latin letters without their accents, dashes and
// quotes as keyboards have them, "?" for all other characters. `changed` becomes true when it is another name then.
std::string iges_ascii(std::string_view name, bool& changed);
