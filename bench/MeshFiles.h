#pragma once

#include <cstddef>
#include <string>

// Input files for measurements: a closed wavy ring, identical on every machine. Each function writes `triangles`
// triangles, rounded down to complete rows.
void make_binary_stl(const std::string& file, std::size_t triangles);
void make_ascii_stl(const std::string& file, std::size_t triangles);
void make_obj(const std::string& file, std::size_t triangles);
