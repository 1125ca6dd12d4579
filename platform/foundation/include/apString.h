#pragma once

#include <compare>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "apExport.h"

// The platform's wide string. A string that was never set is invalid, which differs from valid and empty: two invalid
// strings are equal, but an invalid string never equals an empty one.
class VELPLATFORM_API apString {
 public:
  static constexpr std::size_t npos = std::wstring::npos;

  apString() = default;
  apString(const wchar_t* text) : text_(text ? text : L""), valid_(text != nullptr) {}
  // `text` is decoded as UTF-8 by the default encoding.
  apString(const char* text);
  apString(std::wstring text) : text_(std::move(text)), valid_(true) {}

  bool invalid() const { return !valid_; }
  bool empty() const { return text_.empty(); }
  std::size_t length() const { return text_.size(); }
  const std::wstring& text() const { return text_; }
  std::wstring_view view() const { return text_; }
  wchar_t operator[](std::size_t index) const { return text_[index]; }

  std::size_t find(std::wstring_view what, std::size_t from = 0) const { return text_.find(what, from); }
  bool begins_with(std::wstring_view what) const { return view().starts_with(what); }

  // A start after the end gives valid, empty text.
  apString substr(std::size_t from, std::size_t count = npos) const;

  // Replaces every occurrence of `from`, left to right; inserted text is not searched again. An empty `from` changes
  // nothing.
  apString replace_all(const apString& from, const apString& to) const;

  apString& operator+=(const apString& more);

  friend apString operator+(apString left, const apString& right) { return left += right; }
  friend bool operator==(const apString& left, const apString& right) = default;
  friend std::strong_ordering operator<=>(const apString& left, const apString& right) = default;

 private:
  std::wstring text_;
  bool valid_ = false;
};

// Equal strings have equal hashes.
VELPLATFORM_API std::size_t co_hash(const apString& text);

template <>
struct std::hash<apString> {
  std::size_t operator()(const apString& text) const noexcept { return co_hash(text); }
};
