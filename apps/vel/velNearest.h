#pragma once

#include <string>
#include <string_view>
#include <vector>

// The name that somebody who typed `word` most likely meant: one that differs from it by a few letters that are wrong,
// missing, too many or in each other's place. Empty when none is as near as that. Of several the first one.
std::string vel_nearest(std::string_view word, const std::vector<std::string>& names);
