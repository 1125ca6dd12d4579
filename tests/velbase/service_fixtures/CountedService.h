#pragma once

#include <string>
#include <vector>

// What the counted service hands out. Once a test has set `events`, the library tells there when its instance is
// destroyed and when it is unloaded itself.
struct CountedService {
  int build;
  const void* app_info;
  std::vector<std::string>* events;
};
