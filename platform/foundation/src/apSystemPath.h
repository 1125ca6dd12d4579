#pragma once

#include <string>
#include <string_view>

#include "apPathName.h"

// A path as the system takes it. Empty, which names nothing, for what no file can be called: an invalid path, text
// without bytes for it, text with a null character inside.
std::string ap_system_path(const apPathName& path);

// Appends the text of a name that the system gave, as a path with this encoding spells it.
void ap_decode_name(std::string_view name, const apIStringEncoding* encoding, std::wstring& text);
