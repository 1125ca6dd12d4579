#include "gltfAccessors.h"

#include <algorithm>

#include "vltNames.h"

namespace {

// The size of a component type in bytes; 0 for an unknown type.
std::size_t size_of(std::size_t type) {
  switch (type) {
    case gltfINT8:
    case gltfUINT8:
      return 1;
    case gltfINT16:
    case gltfUINT16:
      return 2;
    case gltfUINT32:
    case gltfFLOAT:
      return 4;
  }
  return 0;
}

std::size_t components_of(std::string_view type) {
  constexpr std::pair<std::string_view, std::size_t> known[] = {{"SCALAR", 1}, {"VEC2", 2}, {"VEC3", 3}, {"VEC4", 4},
                                                                {"MAT2", 4},   {"MAT3", 9}, {"MAT4", 16}};
  for (const auto& [name, count] : known) {
    if (name == type) return count;
  }
  return 0;
}

template <typename List, typename Value>
bool contains(const List& list, Value value) {
  return std::find(list.begin(), list.end(), value) != list.end();
}

// The number of elements that fit into these bytes; the last one needs no gap after it.
std::size_t room_for(std::size_t bytes, std::size_t size, std::size_t stride) {
  return bytes < size ? 0 : 1 + (bytes - size) / stride;
}

}  // namespace

std::size_t gltfAccessor::element_size() const {
  return components * size_of(type);
}

bool gltfAccessors::find(std::size_t index, const gltfElements& expected, gltfAccessor& accessor) {
  const gltfValue value = model_.item(gltfACCESSORS, index);
  accessor.index = index;
  if (!read_type(value, expected, accessor)) return false;
  std::optional<std::size_t> count;
  if (!value.read("count", count)) return false;
  if (!count) return value.fail("its count is missing");
  accessor.count = *count;
  return read_data(value, accessor) && read_sparse(value, accessor);
}

bool gltfAccessors::fail(const gltfAccessor& accessor, std::string_view reason) const {
  return model_.item(gltfACCESSORS, accessor.index).fail(reason);
}

bool gltfAccessors::read_type(const gltfValue& value, const gltfElements& expected, gltfAccessor& accessor) const {
  std::size_t component_type = 0;
  std::string_view type;
  if (!value.read("componentType", component_type) || !value.read("type", type) ||
      !value.read("normalized", accessor.normalized)) {
    return false;
  }
  if (size_of(component_type) == 0) {
    return value.fail("componentType", std::to_string(component_type) + " stands for no type of numbers");
  }
  accessor.type = static_cast<gltfComponentType>(component_type);
  accessor.components = components_of(type);
  if (contains(expected.components, accessor.components) && !type.starts_with("MAT") &&
      contains(expected.types, accessor.type)) {
    return true;
  }
  return value.fail(std::string("elements of type ") + vlt_quoted(type) + " and component type " +
                    std::to_string(component_type) + " cannot be " + expected.what);
}

bool gltfAccessors::read_data(const gltfValue& value, gltfAccessor& accessor) {
  std::optional<std::size_t> view_index;
  std::size_t offset = 0;
  if (!model_.refer(value, "bufferView", gltfVIEWS, view_index) || !value.read("byteOffset", offset)) return false;
  if (!view_index) {
    if (!value.has("sparse")) findings_.count(velabsWARNING, "an accessor without data counts as zeros");
    return true;
  }
  gltfBuffers::View view;
  if (!buffers_.view(*view_index, view)) return false;
  const std::size_t size = accessor.element_size();
  accessor.stride = view.stride == 0 ? size : view.stride;
  if (accessor.stride < size) {
    return value.fail("the byteStride of its bufferView, " + std::to_string(view.stride) +
                      ", is smaller than its elements of " + std::to_string(size) + " bytes");
  }
  if (offset > view.bytes.size() || accessor.count > room_for(view.bytes.size() - offset, size, accessor.stride)) {
    return value.fail(std::to_string(accessor.count) + " elements at byte " + std::to_string(offset) +
                      " lead out of its bufferView, which has " + std::to_string(view.bytes.size()) + " bytes");
  }
  const std::size_t alignment = size_of(accessor.type);
  if (offset % alignment != 0 || (view.offset + offset) % alignment != 0) {
    findings_.count(velabsWARNING, "numbers that are not aligned in their buffer are read as they stand");
  }
  accessor.data = view.bytes.data() + offset;
  return true;
}

bool gltfAccessors::read_sparse(const gltfValue& value, gltfAccessor& accessor) {
  std::optional<gltfValue> sparse, indices, values;
  if (!value.read("sparse", sparse)) return false;
  if (!sparse) return true;
  std::optional<std::size_t> count, indices_view, values_view;
  if (!sparse->read("count", count) || !sparse->read("indices", indices) || !sparse->read("values", values)) {
    return false;
  }
  if (!count || !indices || !values) return sparse->fail("count, indices and values are expected");
  std::size_t type = 0, indices_offset = 0, values_offset = 0;
  if (!model_.refer(*indices, "bufferView", gltfVIEWS, indices_view) || !indices->read("byteOffset", indices_offset) ||
      !indices->read("componentType", type) || !model_.refer(*values, "bufferView", gltfVIEWS, values_view) ||
      !values->read("byteOffset", values_offset)) {
    return false;
  }
  if (!indices_view) return indices->fail("its bufferView is missing");
  if (!values_view) return values->fail("its bufferView is missing");
  if (type != gltfUINT8 && type != gltfUINT16 && type != gltfUINT32) {
    return indices->fail("componentType", std::to_string(type) + " stands for no type of indices");
  }
  if (*count > accessor.count) return sparse->fail("count", "there are more of them than elements");

  gltfBuffers::View index_bytes, value_bytes;
  if (!buffers_.view(*indices_view, index_bytes) || !buffers_.view(*values_view, value_bytes)) return false;
  auto fits = [&](std::string_view bytes, std::size_t offset, std::size_t size) {
    return offset <= bytes.size() && *count <= (bytes.size() - offset) / size;
  };
  if (!fits(index_bytes.bytes, indices_offset, size_of(type))) {
    return indices->fail(std::to_string(*count) + " of them lead out of their bufferView");
  }
  if (!fits(value_bytes.bytes, values_offset, accessor.element_size())) {
    return values->fail(std::to_string(*count) + " of them lead out of their bufferView");
  }
  accessor.sparse_count = *count;
  accessor.sparse_type = static_cast<gltfComponentType>(type);
  accessor.sparse_indices = index_bytes.bytes.data() + indices_offset;
  accessor.sparse_values = value_bytes.bytes.data() + values_offset;
  for (std::size_t i = 0; i < *count; ++i) {
    const char* at = accessor.sparse_indices + i * size_of(type);
    const std::size_t index = type == gltfUINT8    ? gltf_load<std::uint8_t>(at)
                              : type == gltfUINT16 ? gltf_load<std::uint16_t>(at)
                                                   : gltf_load<std::uint32_t>(at);
    if (index < accessor.count) continue;
    return indices->fail(std::to_string(index) + " is out of range: there are " + std::to_string(accessor.count) +
                         " elements");
  }
  return true;
}
