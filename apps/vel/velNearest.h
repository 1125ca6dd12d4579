#pragma once

#include <string>
#include <string_view>
#include <vector>

// Suggests the name that the user most likely meant by `word`: the one with the fewest wrong, missing, extra or swapped
// letters. Of equally near names it returns the first one; empty when all differ too much.
std::string vel_nearest(std::string_view word, const std::vector<std::string>& names);
