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

// A value as one types it in one word: "as-is" for "as is". Texts and numbers stay as they are.
std::string vel_shown_value(const utString& key, const utString& value);

// Which numbers a key takes, "0 to 17" for instance; empty when it takes all of its type.
std::string vel_range_of(const utString& key);

// Empty when the value is one that the key takes, else what it takes.
std::string vel_refusal(const utString& key, const utString& value);
