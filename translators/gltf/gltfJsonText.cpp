#include "gltfJsonText.h"

#include <nlohmann/json.hpp>

#include "apNumberText.h"

void gltfJsonText::separate() {
  if (needs_comma_) json_ += ',';
  if (needs_line_) json_ += '\n';
  needs_comma_ = needs_line_ = false;
}

gltfJsonText& gltfJsonText::open(char bracket) {
  separate();
  json_ += bracket;
  return *this;
}

gltfJsonText& gltfJsonText::close(char bracket) {
  json_ += bracket;
  needs_comma_ = true;
  return *this;
}

gltfJsonText& gltfJsonText::key(std::string_view key) {
  text(key);
  json_ += ':';
  needs_comma_ = false;
  return *this;
}

gltfJsonText& gltfJsonText::line() {
  needs_line_ = true;
  return *this;
}

gltfJsonText& gltfJsonText::text(std::string_view text) {
  separate();
  json_ += nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
  needs_comma_ = true;
  return *this;
}

gltfJsonText& gltfJsonText::flag(bool flag) {
  separate();
  json_ += flag ? "true" : "false";
  needs_comma_ = true;
  return *this;
}

template <typename Number>
gltfJsonText& gltfJsonText::write(Number number) {
  separate();
  char digits[ap_number_room];
  json_.append(digits, ap_write_number(digits, number));
  needs_comma_ = true;
  return *this;
}

gltfJsonText& gltfJsonText::number(std::size_t number) {
  return write(static_cast<long long>(number));
}

gltfJsonText& gltfJsonText::number(double number) {
  return write(number);
}

gltfJsonText& gltfJsonText::number(float number) {
  return write(number);
}
