#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "velabsOutput.h"

// A JSON object of the file with its path, for example "meshes[2].primitives[0]", and checked access to its members.
// The functions that return a bool return true and change nothing when the member is absent. A member of another type
// is an error: false, with a message that names the path. The JSON and the output must outlive this object.
class gltfValue {
 public:
  using Json = nlohmann::json;
  using Array = Json::array_t;

  gltfValue(const Json& json, std::string path, velabsOutput& output)
      : json_(&json), path_(std::move(path)), output_(&output) {}

  const std::string& path() const { return path_; }
  bool has(const char* key) const { return find(key) != nullptr; }

  bool read(const char* key, std::size_t& number) const;  // an integer, not negative
  bool read(const char* key, std::optional<std::size_t>& number) const;
  bool read(const char* key, double& number) const;
  bool read(const char* key, bool& flag) const;
  bool read(const char* key, std::string_view& text) const;  // valid as long as the JSON
  bool read(const char* key, std::optional<gltfValue>& object) const;
  bool read(const char* key, const Array*& array) const;
  // Reads exactly as many numbers as the span holds.
  bool read(const char* key, std::span<double> numbers) const;

  // A text in the extras, which may have any form; empty when there is none. Valid as long as the JSON.
  std::string_view extra(const char* key) const;

  // An element of an array in this object; false when it is not an object.
  bool element(const char* key, const Array& array, std::size_t index, std::optional<gltfValue>& object) const;
  // An element as an integer that is not negative.
  bool element(const char* key, const Array& array, std::size_t index, std::size_t& number) const;

  // Reports an error in this object or in one of its members. Always false, so a function can return the result.
  bool fail(std::string_view reason) const;
  bool fail(const char* key, std::string_view reason) const;

 private:
  const Json* find(const char* key) const;
  std::string path_to(const char* key) const;
  bool fail_at(const std::string& path, std::string_view reason) const;

  const Json* json_;
  std::string path_;
  velabsOutput* output_;
};
