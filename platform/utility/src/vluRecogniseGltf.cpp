#include <algorithm>
#include <array>
#include <string_view>

#include "vluRecognisers.h"
#include "vluTextScan.h"

namespace {

constexpr std::array<std::string_view, 12> other_keys{"accessors", "animations", "buffers",   "bufferViews",
                                                      "cameras",   "images",     "materials", "meshes",
                                                      "nodes",     "scene",      "scenes",    "textures"};

// Removes a quoted string, which may be cut off by the end of the text.
std::string_view take_string(std::string_view& text) {
  text.remove_prefix(1);
  std::size_t end = 0;
  while (end < text.size() && text[end] != '"') end += text[end] == '\\' ? 2 : 1;
  end = std::min(end, text.size());
  const std::string_view content = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return content;
}

bool is_key(std::string_view behind) {
  vlu_skip_space(behind);
  return behind.starts_with(':');
}

struct Keys {
  bool asset = false;
  int others = 0;
};

// The keys of the outermost object, up to the end of the text.
Keys outer_keys(std::string_view text) {
  Keys keys;
  int depth = 0;
  while (!text.empty()) {
    const char c = text.front();
    if (c == '"') {
      const std::string_view word = take_string(text);
      if (depth != 1 || !is_key(text)) continue;
      keys.asset |= word == "asset";
      keys.others += static_cast<int>(std::count(other_keys.begin(), other_keys.end(), word));
      continue;
    }
    if (c == '{' || c == '[') ++depth;
    if ((c == '}' || c == ']') && --depth == 0) break;
    text.remove_prefix(1);
  }
  return keys;
}

bool names_asset(std::string_view text) {
  constexpr std::string_view word = "\"asset\"";
  for (std::size_t at = text.find(word); at != text.npos; at = text.find(word, at + 1)) {
    if (is_key(text.substr(at + word.size()))) return true;
  }
  return false;
}

}  // namespace

vluSureness vlu_sure_of_gltf(const vluFileSample& sample) {
  std::string_view text = sample.text();
  vlu_skip_space(text);
  if (!text.starts_with('{')) return vluNO_MARK;
  const Keys keys = outer_keys(text);
  if (keys.asset) return vluKEYWORD;
  // A long embedded buffer may push the other keys out of the head.
  if (!sample.head_is_all() && names_asset(sample.tail())) return vluCONSISTENT;
  return keys.others >= 2 ? vluRESEMBLES : vluNO_MARK;
}
