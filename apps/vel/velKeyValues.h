#pragma once

#include <string>
#include <vector>

#include "utString.h"

// The values that a key of resource files accepts.
struct velKeyValues {
  std::string type;                  // "text", "real", "whole", "true/false" or "one of"
  std::vector<std::string> allowed;  // empty for the first three types
};

velKeyValues vel_values_of(const utString& key);

// A value of a "one of" key as one argument: "as-is" for "as is". Other values are unchanged.
std::string vel_shown_value(const utString& key, const utString& value);

// The range of numbers that a key accepts, "0 to 17" for instance; empty when the range is not limited.
std::string vel_range_of(const utString& key);

// Empty when the key accepts the value, else a description of what it accepts.
std::string vel_refusal(const utString& key, const utString& value);
