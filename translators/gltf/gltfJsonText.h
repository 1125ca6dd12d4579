#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Writes JSON: values in sequence, with commas where needed.
class gltfJsonText {
 public:
  gltfJsonText& open(char bracket);
  gltfJsonText& close(char bracket);
  gltfJsonText& key(std::string_view key);
  // Starts the next value or key on a new line.
  gltfJsonText& line();

  // Bytes that are not UTF-8 are replaced.
  gltfJsonText& text(std::string_view text);
  gltfJsonText& flag(bool flag);
  gltfJsonText& number(std::size_t number);
  // The shortest text that reads back as the same number.
  gltfJsonText& number(double number);
  gltfJsonText& number(float number);

  const std::string& str() const { return json_; }

 private:
  void separate();
  template <typename Number>
  gltfJsonText& write(Number number);

  std::string json_;
  bool needs_comma_ = false;
  bool needs_line_ = false;
};
