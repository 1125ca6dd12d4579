#pragma once

#include <string>
#include <string_view>

// Why the entity numbers of a file are invalid, as the end of a sentence that begins with "it"; empty when each number
// identifies one entity. With duplicates, a reader that searches by number may not end.
std::string step_number_fault(std::string_view bytes);
