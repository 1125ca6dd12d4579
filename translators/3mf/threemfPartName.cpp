#include "threemfPartName.h"

namespace {

int hex_digit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  c = static_cast<char>(c | 0x20);
  return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

// Reads one character, escaped or not; false when it is not allowed in part names.
bool take_character(std::string_view& name, char& c) {
  c = name.front();
  name.remove_prefix(1);
  if (c == '\\' || c == ':' || c == '\0') return false;
  if (c != '%' || name.size() < 2 || hex_digit(name[0]) < 0 || hex_digit(name[1]) < 0) return true;
  c = static_cast<char>(hex_digit(name[0]) * 16 + hex_digit(name[1]));
  name.remove_prefix(2);
  return c != '/' && c != '\\' && c != '\0';
}

std::string_view folder_of(std::string_view key) {
  return key.substr(0, key.rfind('/') + 1);
}

}  // namespace

std::optional<std::string> threemf_part_key(std::string_view name) {
  if (name.starts_with('/')) name.remove_prefix(1);
  std::string key;
  std::size_t segment = 0;
  auto segment_is_good = [&] {
    const std::string_view text = std::string_view(key).substr(segment);
    return !text.empty() && text != "." && text != "..";
  };
  while (!name.empty()) {
    char c;
    const bool separates = name.front() == '/';
    if (!take_character(name, c) || (separates && !segment_is_good())) return std::nullopt;
    key += c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
    if (separates) segment = key.size();
  }
  if (!segment_is_good()) return std::nullopt;
  return key;
}

std::optional<std::string> threemf_target_key(std::string_view source, std::string_view target) {
  if (target.starts_with('/')) return threemf_part_key(target);
  return threemf_part_key(std::string(folder_of(source)) + std::string(target));
}

std::string threemf_relationships_key(std::string_view source) {
  const std::string_view folder = folder_of(source);
  return std::string(folder) + "_rels/" + std::string(source.substr(folder.size())) + ".rels";
}
