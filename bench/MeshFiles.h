#pragma once

#include <cstddef>
#include <string>

// Input files for measurements: a closed surface, a ring with waves, that is the same on every machine. Each function
// writes `triangles` of them, rounded down to whole rows.
void make_binary_stl(const std::string& file, std::size_t triangles);
void make_ascii_stl(const std::string& file, std::size_t triangles);
void make_obj(const std::string& file, std::size_t triangles);
