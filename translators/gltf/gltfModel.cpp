#include "gltfModel.h"

#include <algorithm>

#include "vltNames.h"

namespace {

constexpr std::size_t deepest_nesting = 200;

constexpr const char* list_keys[gltfLISTS] = {"scenes",    "nodes",       "meshes", "materials",
                                              "accessors", "bufferViews", "buffers"};

// Extensions that are supported or do not affect what is read.
constexpr std::string_view understood[] = {"KHR_mesh_quantization", "KHR_xmp_json_ld", "KHR_animation_pointer",
                                           "MSFT_texture_dds"};
// The same for extensions with these prefixes: they are about materials beyond colour and opacity.
constexpr std::string_view understood_fronts[] = {"KHR_materials_", "EXT_materials_", "KHR_texture_",
                                                  "EXT_texture_",   "KHR_lights_",    "EXT_lights_"};

bool is_understood(std::string_view extension) {
  auto begins = [&](std::string_view front) { return extension.starts_with(front); };
  return std::find(std::begin(understood), std::end(understood), extension) != std::end(understood) ||
         std::any_of(std::begin(understood_fronts), std::end(understood_fronts), begins);
}

// The position where the nesting becomes too deep; npos when it does not.
std::size_t too_deep_at(std::string_view text) {
  std::size_t depth = 0;
  bool in_text = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (in_text) {
      if (c == '\\') {
        ++i;
      } else if (c == '"') {
        in_text = false;
      }
    } else if (c == '"') {
      in_text = true;
    } else if (c == '{' || c == '[') {
      if (++depth > deepest_nesting) return i;
    } else if ((c == '}' || c == ']') && depth > 0) {
      --depth;
    }
  }
  return text.npos;
}

// Parses an invalid text a second time to find the position of the error.
class ErrorFinder : public nlohmann::json_sax<nlohmann::json> {
 public:
  bool null() override { return true; }
  bool boolean(bool) override { return true; }
  bool number_integer(number_integer_t) override { return true; }
  bool number_unsigned(number_unsigned_t) override { return true; }
  bool number_float(number_float_t, const string_t&) override { return true; }
  bool string(string_t&) override { return true; }
  bool binary(binary_t&) override { return true; }
  bool start_object(std::size_t) override { return true; }
  bool key(string_t&) override { return true; }
  bool end_object() override { return true; }
  bool start_array(std::size_t) override { return true; }
  bool end_array() override { return true; }
  bool parse_error(std::size_t position, const std::string& last_token, const nlohmann::detail::exception&) override {
    at = position > 0 ? position - 1 : 0;
    token = last_token;
    return false;
  }

  std::size_t at = 0;
  std::string token;
};

}  // namespace

bool gltfModel::parse(std::string_view text, std::size_t offset) {
  auto place = [offset](std::size_t at) { return "byte " + std::to_string(offset + at) + ": "; };
  if (const std::size_t at = too_deep_at(text); at != text.npos) {
    return fail(place(at) + "the JSON is nested more than " + std::to_string(deepest_nesting) + " levels deep");
  }
  json_ = nlohmann::json::parse(text.begin(), text.end(), nullptr, false);
  if (json_.is_discarded()) {
    ErrorFinder finder;
    nlohmann::json::sax_parse(text.begin(), text.end(), &finder);
    if (finder.at >= text.size()) return fail(place(text.size()) + "the JSON ends too early");
    return fail(place(finder.at) + "this is no valid JSON, near " + vlt_quoted(finder.token));
  }
  if (!json_.is_object()) return fail("the JSON is no object, so this is no glTF");
  return check_asset() && check_extensions() && find_lists();
}

bool gltfModel::check_asset() const {
  std::optional<gltfValue> asset;
  if (!root().read("asset", asset)) return false;
  if (!asset) return fail("the JSON has no \"asset\", so this is no glTF 2.0");
  std::string_view version, least;
  if (!asset->read("version", version) || !asset->read("minVersion", least)) return false;
  if (!version.starts_with("2.")) {
    return asset->fail("version", "only glTF 2 can be read, not version " + vlt_quoted(version));
  }
  if (least.empty() || least == "2.0") return true;
  return asset->fail("minVersion", "only glTF 2.0 can be read, the file needs " + vlt_quoted(least));
}

bool gltfModel::check_extensions() const {
  constexpr const char* key = "extensionsRequired";
  const gltfValue::Array* required = nullptr;
  if (!root().read(key, required)) return false;
  if (!required) return true;
  for (const nlohmann::json& name : *required) {
    if (!name.is_string()) return root().fail(key, "texts are expected");
    const std::string_view text = name.get_ref<const std::string&>();
    if (is_understood(text)) continue;
    return root().fail(key, "the file cannot be read without the extension " + vlt_quoted(text) +
                                ", which is not supported; save it without");
  }
  return true;
}

bool gltfModel::find_lists() {
  for (std::size_t list = 0; list < gltfLISTS; ++list) {
    if (!root().read(list_keys[list], lists_[list])) return false;
    for (std::size_t i = 0; i < count(static_cast<gltfList>(list)); ++i) {
      std::optional<gltfValue> object;
      if (!(*lists_[list])[i].is_object()) return root().element(list_keys[list], *lists_[list], i, object);
    }
  }
  return true;
}

gltfValue gltfModel::item(gltfList list, std::size_t index) const {
  return {(*lists_[list])[index], std::string(list_keys[list]) + "[" + std::to_string(index) + "]", output_};
}

bool gltfModel::refer(const gltfValue& from, const char* key, gltfList list, std::optional<std::size_t>& index) const {
  if (!from.read(key, index)) return false;
  if (!index || *index < count(list)) return true;
  return from.fail(key, std::to_string(*index) + " is out of range: there are " + std::to_string(count(list)) + " " +
                            list_keys[list]);
}

bool gltfModel::refer(const gltfValue& from, const char* key, const gltfValue::Array& array, std::size_t element,
                      gltfList list, std::size_t& index) const {
  if (!from.element(key, array, element, index)) return false;
  if (index < count(list)) return true;
  return from.fail(
      (std::string(key) + "[" + std::to_string(element) + "]").c_str(),
      std::to_string(index) + " is out of range: there are " + std::to_string(count(list)) + " " + list_keys[list]);
}

bool gltfModel::fail(const std::string& reason) const {
  output_.message(velabsERROR, utString(reason));
  return false;
}
