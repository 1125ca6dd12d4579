#pragma once

// Checks the language version. Every header of the suite includes this one, directly or indirectly.
#define VEL_LANGUAGE_CHECKED
#if __cplusplus < 202002L
#error "velbase needs C++20: compile with -std=c++20, or link vel::base in CMake, which asks for it"
#endif
