#include "apString.h"

#include "apUtf8.h"

apString::apString(const char* text) : valid_(text != nullptr) {
  if (text) ap_decode_utf8(text, text_);
}

apString apString::substr(std::size_t from, std::size_t count) const {
  return from < text_.size() ? text_.substr(from, count) : std::wstring();
}

apString apString::replace_all(const apString& from, const apString& to) const {
  if (from.empty()) return *this;
  std::wstring result;
  std::size_t start = 0;
  for (std::size_t at; (at = text_.find(from.text_, start)) != npos; start = at + from.length()) {
    result.append(text_, start, at - start).append(to.text_);
  }
  if (start == 0) return *this;
  return result.append(text_, start);
}

apString& apString::operator+=(const apString& more) {
  text_ += more.text_;
  valid_ = valid_ || more.valid_;
  return *this;
}

std::size_t co_hash(const apString& text) {
  // Invalid and empty strings differ, so their hashes should differ too.
  return std::hash<std::wstring>()(text.text()) + (text.invalid() ? 1 : 0);
}
