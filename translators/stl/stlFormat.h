#pragma once

#include <cstddef>

#include "vltFormat.h"

extern const vltFormat stl_format;

// The binary form, little-endian: a header of 80 bytes, the number of triangles, then the triangles. Each has a normal
// and three points, of three floats each, and two attribute bytes.
inline constexpr std::size_t stl_remark_size = 80;
inline constexpr std::size_t stl_head_size = stl_remark_size + 4;
inline constexpr std::size_t stl_record_size = 50;
inline constexpr std::size_t stl_points_in_record = 12;
inline constexpr std::size_t stl_attribute_in_record = 48;
