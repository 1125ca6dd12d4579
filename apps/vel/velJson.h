#pragma once

#include <nlohmann/json.hpp>

#include "velConsole.h"

// Objects whose members come out in the order in which they were put in.
using velJson = nlohmann::ordered_json;

// Prints one object. Bytes that are no UTF-8, as a file's name may hold them, come out as U+FFFD.
inline void vel_print_json(velConsole& console, const velJson& object) {
  console.print(object.dump(2, ' ', false, velJson::error_handler_t::replace) + "\n");
}
