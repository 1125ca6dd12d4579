#include "gltfValue.h"

#include <cmath>

namespace {

// Some programs write integers as "3.0".
bool take_whole(const gltfValue::Json& json, std::size_t& number) {
  constexpr double most = 9007199254740992.0;  // 2^53: a double is exact for integers up to here
  if (json.is_number_unsigned()) {
    number = json.get_ref<const gltfValue::Json::number_unsigned_t&>();
    return true;
  }
  if (!json.is_number_float()) return false;
  const double value = json.get_ref<const gltfValue::Json::number_float_t&>();
  if (!(value >= 0 && value <= most) || value != std::floor(value)) return false;
  number = static_cast<std::size_t>(value);
  return true;
}

bool take_number(const gltfValue::Json& json, double& number) {
  if (!json.is_number()) return false;
  number = json.is_number_float()      ? json.get_ref<const gltfValue::Json::number_float_t&>()
           : json.is_number_unsigned() ? static_cast<double>(json.get_ref<const gltfValue::Json::number_unsigned_t&>())
                                       : static_cast<double>(json.get_ref<const gltfValue::Json::number_integer_t&>());
  return std::isfinite(number);
}

std::string at(const std::string& path, std::size_t index) {
  return path + "[" + std::to_string(index) + "]";
}

}  // namespace

const gltfValue::Json* gltfValue::find(const char* key) const {
  const auto member = json_->find(key);
  return member == json_->end() ? nullptr : &*member;
}

std::string_view gltfValue::extra(const char* key) const {
  const Json* extras = find("extras");
  if (!extras || !extras->is_object()) return {};
  const auto member = extras->find(key);
  return member != extras->end() && member->is_string() ? member->get_ref<const std::string&>() : std::string_view();
}

bool gltfValue::read(const char* key, std::size_t& number) const {
  const Json* member = find(key);
  return !member || take_whole(*member, number) || fail(key, "a whole number that is not negative is expected");
}

bool gltfValue::read(const char* key, std::optional<std::size_t>& number) const {
  if (!has(key)) return true;
  std::size_t value = 0;
  if (!read(key, value)) return false;
  number = value;
  return true;
}

bool gltfValue::read(const char* key, double& number) const {
  const Json* member = find(key);
  return !member || take_number(*member, number) || fail(key, "a number is expected");
}

bool gltfValue::read(const char* key, bool& flag) const {
  const Json* member = find(key);
  if (!member) return true;
  if (!member->is_boolean()) return fail(key, "true or false is expected");
  flag = member->get_ref<const Json::boolean_t&>();
  return true;
}

bool gltfValue::read(const char* key, std::string_view& text) const {
  const Json* member = find(key);
  if (!member) return true;
  if (!member->is_string()) return fail(key, "a text is expected");
  text = member->get_ref<const Json::string_t&>();
  return true;
}

bool gltfValue::read(const char* key, std::optional<gltfValue>& object) const {
  const Json* member = find(key);
  if (!member) return true;
  if (!member->is_object()) return fail(key, "an object is expected");
  object = gltfValue(*member, path_to(key), *output_);
  return true;
}

bool gltfValue::read(const char* key, const Array*& array) const {
  const Json* member = find(key);
  if (!member) return true;
  if (!member->is_array()) return fail(key, "an array is expected");
  array = &member->get_ref<const Array&>();
  return true;
}

bool gltfValue::read(const char* key, std::span<double> numbers) const {
  const Array* array = nullptr;
  if (!read(key, array)) return false;
  if (!array) return true;
  if (array->size() != numbers.size()) {
    return fail(key, std::to_string(numbers.size()) + " numbers are expected, not " + std::to_string(array->size()));
  }
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    if (!take_number((*array)[i], numbers[i])) return fail_at(at(path_to(key), i), "a number is expected");
  }
  return true;
}

bool gltfValue::element(const char* key, const Array& array, std::size_t index,
                        std::optional<gltfValue>& object) const {
  std::string path = at(path_to(key), index);
  if (!array[index].is_object()) return fail_at(path, "an object is expected");
  object = gltfValue(array[index], std::move(path), *output_);
  return true;
}

bool gltfValue::element(const char* key, const Array& array, std::size_t index, std::size_t& number) const {
  return take_whole(array[index], number) ||
         fail_at(at(path_to(key), index), "a whole number that is not negative is expected");
}

bool gltfValue::fail(std::string_view reason) const {
  return fail_at(path_, reason);
}

bool gltfValue::fail(const char* key, std::string_view reason) const {
  return fail_at(path_to(key), reason);
}

std::string gltfValue::path_to(const char* key) const {
  return path_.empty() ? key : path_ + "." + key;
}

bool gltfValue::fail_at(const std::string& path, std::string_view reason) const {
  output_->message(velabsERROR, utString((path.empty() ? "" : path + ": ") + std::string(reason)));
  return false;
}
