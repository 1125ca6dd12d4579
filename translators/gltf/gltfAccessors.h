#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <limits>
#include <string>
#include <string_view>

#include "gltfBuffers.h"
#include "gltfFormat.h"
#include "gltfModel.h"
#include "gltfWork.h"
#include "vltOnce.h"

// A checked list of numbers or vectors: all `count` elements are inside their buffer. Without data all are 0. The
// sparse part replaces the elements that it names.
struct gltfAccessor {
  std::size_t index = 0;
  gltfComponentType type = gltfFLOAT;
  bool normalized = false;
  std::size_t components = 1;
  std::size_t count = 0;
  const char* data = nullptr;
  std::size_t stride = 0;

  std::size_t sparse_count = 0;
  gltfComponentType sparse_type = gltfUINT32;
  const char* sparse_indices = nullptr;
  const char* sparse_values = nullptr;

  std::size_t element_size() const;
};

// The element types that are valid for one use of an accessor.
struct gltfElements {
  const char* what;
  std::initializer_list<std::size_t> components;
  std::initializer_list<gltfComponentType> types;
};

// Finds and checks accessors.
class gltfAccessors {
 public:
  gltfAccessors(const gltfModel& model, gltfBuffers& buffers, vltOnce& findings)
      : model_(model), buffers_(buffers), findings_(findings) {}

  // False, with a message, when the accessor is invalid or does not have such elements.
  bool find(std::size_t index, const gltfElements& expected, gltfAccessor& accessor);

  // Reports an error in the elements of an accessor. Always false, so a function can return the result.
  bool fail(const gltfAccessor& accessor, std::string_view reason) const;

 private:
  bool read_type(const gltfValue& value, const gltfElements& expected, gltfAccessor& accessor) const;
  bool read_data(const gltfValue& value, gltfAccessor& accessor);
  bool read_sparse(const gltfValue& value, gltfAccessor& accessor);

  const gltfModel& model_;
  gltfBuffers& buffers_;
  vltOnce& findings_;
};

template <typename T>
T gltf_load(const char* from) {
  T value;
  std::memcpy(&value, from, sizeof value);
  return value;
}

// Calls `use(index, bytes)` for each element, and again for each element of the sparse part. False when `use` returns
// false or the work is cancelled.
template <typename Use>
bool gltf_for_each_element(const gltfAccessor& accessor, const gltfWork& work, Use use) {
  static constexpr char zeros[16]{};
  for (std::size_t i = 0; i < accessor.count; ++i) {
    if (i % gltfWork::step == 0 && !work.goes_on()) return false;
    if (!use(i, accessor.data ? accessor.data + i * accessor.stride : zeros)) return false;
  }
  for (std::size_t i = 0; i < accessor.sparse_count; ++i) {
    const char* at = accessor.sparse_indices;
    const std::size_t index = accessor.sparse_type == gltfUINT8    ? gltf_load<std::uint8_t>(at + i)
                              : accessor.sparse_type == gltfUINT16 ? gltf_load<std::uint16_t>(at + 2 * i)
                                                                   : gltf_load<std::uint32_t>(at + 4 * i);
    if (!use(index, accessor.sparse_values + i * accessor.element_size())) return false;
  }
  return true;
}

// A component of an element as a number; normalised integers become 0 to 1 or -1 to 1.
template <typename T>
double gltf_component(const char* element, std::size_t component, bool normalized) {
  const auto value = static_cast<double>(gltf_load<T>(element + component * sizeof(T)));
  if constexpr (std::numeric_limits<T>::is_integer) {
    if (normalized) return std::max(value / static_cast<double>(std::numeric_limits<T>::max()), -1.0);
  }
  return value;
}

// Calls `call` with a value of the C++ type of a component type, for example call(float{}).
template <typename Call>
bool gltf_with_type(gltfComponentType type, Call call) {
  switch (type) {
    case gltfINT8:
      return call(std::int8_t{});
    case gltfUINT8:
      return call(std::uint8_t{});
    case gltfINT16:
      return call(std::int16_t{});
    case gltfUINT16:
      return call(std::uint16_t{});
    case gltfUINT32:
      return call(std::uint32_t{});
    case gltfFLOAT:
      return call(float{});
  }
  return false;
}
