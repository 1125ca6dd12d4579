#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string_view>

#include "gltfValue.h"
#include "velabsOutput.h"

// The lists of a file whose elements refer to each other by index.
enum gltfList { gltfSCENES, gltfNODES, gltfMESHES, gltfMATERIALS, gltfACCESSORS, gltfVIEWS, gltfBUFFERS, gltfLISTS };

// The JSON of a file, which describes its binary data. JSON that is nested too deep is rejected before it is parsed.
class gltfModel {
 public:
  explicit gltfModel(velabsOutput& output) : output_(output) {}

  // False, with a message, when the text is not glTF 2 or requires an unknown extension. `offset` is the position of
  // the text in the file, for messages.
  bool parse(std::string_view text, std::size_t offset);

  gltfValue root() const { return {json_, "", output_}; }
  std::size_t count(gltfList list) const { return lists_[list] ? lists_[list]->size() : 0; }
  gltfValue item(gltfList list, std::size_t index) const;

  // Reads a reference to an element of a list; an index out of range is an error.
  bool refer(const gltfValue& from, const char* key, gltfList list, std::optional<std::size_t>& index) const;
  bool refer(const gltfValue& from, const char* key, const gltfValue::Array& array, std::size_t element, gltfList list,
             std::size_t& index) const;

 private:
  bool check_asset() const;
  bool check_extensions() const;
  bool find_lists();
  bool fail(const std::string& reason) const;

  velabsOutput& output_;
  nlohmann::json json_;
  std::array<const gltfValue::Array*, gltfLISTS> lists_{};
};
