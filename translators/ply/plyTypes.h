#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

// The number types of a file, with their names of 1994 and the later names with sizes.
enum class plyType : std::uint8_t { int8, uint8, int16, uint16, int32, uint32, float32, float64 };

std::optional<plyType> ply_type_of(std::string_view name);

inline bool ply_is_real(plyType type) {
  return type >= plyType::float32;
}

// The size of a number in the binary forms, in bytes.
inline std::size_t ply_size_of(plyType type) {
  constexpr std::uint8_t sizes[] = {1, 1, 2, 2, 4, 4, 4, 8};
  return sizes[static_cast<std::size_t>(type)];
}

// Loads a number of type T; `swapped` when the file has the other byte order.
template <typename T, bool swapped>
T ply_load(const char* at) {
  T value;
  if constexpr (!swapped || sizeof(T) == 1) {
    std::memcpy(&value, at, sizeof value);
  } else if constexpr (sizeof(T) == 2) {
    std::uint16_t bits;
    std::memcpy(&bits, at, sizeof bits);
    value = std::bit_cast<T>(__builtin_bswap16(bits));
  } else if constexpr (sizeof(T) == 4) {
    std::uint32_t bits;
    std::memcpy(&bits, at, sizeof bits);
    value = std::bit_cast<T>(__builtin_bswap32(bits));
  } else {
    std::uint64_t bits;
    std::memcpy(&bits, at, sizeof bits);
    value = std::bit_cast<T>(__builtin_bswap64(bits));
  }
  return value;
}

// Calls `use` with a value of the C++ type of a plyType: use(float{}) for float32.
template <typename Use>
decltype(auto) ply_with_type(plyType type, Use use) {
  switch (type) {
    case plyType::int8:
      return use(std::int8_t{});
    case plyType::uint8:
      return use(std::uint8_t{});
    case plyType::int16:
      return use(std::int16_t{});
    case plyType::uint16:
      return use(std::uint16_t{});
    case plyType::int32:
      return use(std::int32_t{});
    case plyType::uint32:
      return use(std::uint32_t{});
    case plyType::float32:
      return use(float{});
    case plyType::float64:
      break;
  }
  return use(double{});
}

// A number of any type as a double, which is exact for all types.
template <bool swapped>
double ply_load_any(plyType type, const char* at) {
  return ply_with_type(type, [&](auto zero) { return static_cast<double>(ply_load<decltype(zero), swapped>(at)); });
}
