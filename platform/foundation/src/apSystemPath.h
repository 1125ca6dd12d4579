#pragma once

#include <string>
#include <string_view>

#include "apPathName.h"

// A path in the system's bytes. Empty, which is never a valid name, if it cannot be the name of a file: an invalid
// path, text without bytes for it, text that contains a null character.
std::string ap_system_path(const apPathName& path);

// Appends the text of a name given by the system, decoded with this encoding.
void ap_decode_name(std::string_view name, const apIStringEncoding* encoding, std::wstring& text);
