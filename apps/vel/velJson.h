#pragma once

#include <nlohmann/json.hpp>

#include "velConsole.h"

// Objects keep the order in which members were inserted.
using velJson = nlohmann::ordered_json;

// Prints one object. Bytes that are not valid UTF-8, in file names for instance, become U+FFFD.
inline void vel_print_json(velConsole& console, const velJson& object) {
  console.print(object.dump(2, ' ', false, velJson::error_handler_t::replace) + "\n");
}
