#pragma once

#include <string>
#include <string_view>

// Why the numbers of the entities in a file are none, as the end of a sentence that begins with "it"; nothing when each
// number stands for one entity. A reader that searches by them may search for ever else.
std::string step_number_fault(std::string_view bytes);
