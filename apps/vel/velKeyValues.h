#pragma once

#include <string>
#include <vector>

#include "utString.h"

// The values that the keys of resource files take.
struct velKeyValues {
  std::string type;                  // "text", "real", "whole", "true/false" or "one of"
  std::vector<std::string> allowed;  // nothing for the first three types
};

// Every key that the process knows has some.
velKeyValues vel_values_of(const utString& key);

// Empty when the value is one that the key takes, else what it takes.
std::string vel_refusal(const utString& key, const utString& value);
