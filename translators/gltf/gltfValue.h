#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "velabsOutput.h"

// An object of the file's JSON with the path to it, "meshes[2].primitives[0]", read with checks. Every operation that
// gives a bool leaves what it was given alone and says true when the member is absent; a member of another type than
// asked for is an error: false, and a message with the path. The JSON and the output must outlive it.
class gltfValue {
 public:
  using Json = nlohmann::json;
  using Array = Json::array_t;

  gltfValue(const Json& json, std::string path, velabsOutput& output)
      : json_(&json), path_(std::move(path)), output_(&output) {}

  const std::string& path() const { return path_; }
  bool has(const char* key) const { return find(key) != nullptr; }

  bool read(const char* key, std::size_t& number) const;  // whole and not negative
  bool read(const char* key, std::optional<std::size_t>& number) const;
  bool read(const char* key, double& number) const;
  bool read(const char* key, bool& flag) const;
  bool read(const char* key, std::string_view& text) const;  // valid as long as the JSON
  bool read(const char* key, std::optional<gltfValue>& object) const;
  bool read(const char* key, const Array*& array) const;
  // Exactly as many numbers as there is room for.
  bool read(const char* key, std::span<double> numbers) const;

  // A text among the extras, which may be of any form; empty when there is none. Valid as long as the JSON.
  std::string_view extra(const char* key) const;

  // An element of an array in this object; false when it is no object.
  bool element(const char* key, const Array& array, std::size_t index, std::optional<gltfValue>& object) const;
  // An element as a whole number that is not negative.
  bool element(const char* key, const Array& array, std::size_t index, std::size_t& number) const;

  // Says what is wrong with this object, or with a member of it. False, so that it can end a function.
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
