#pragma once

#include <compare>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "apExport.h"

// The suite's general string: bytes, UTF-8 unless an encoding specifies otherwise. A string that was never set is null.
// It behaves as empty text except in `is_null()`, so utString() == "" although only the first one is null.
class VELPLATFORM_API utString {
 public:
  static constexpr std::size_t npos = std::string::npos;

  utString() = default;
  utString(const char* text) : text_(text ? text : ""), null_(!text) {}
  utString(std::string text) : text_(std::move(text)), null_(false) {}
  explicit utString(std::string_view text) : text_(text), null_(false) {}

  bool is_null() const { return null_; }
  bool empty() const { return text_.empty(); }
  std::size_t length() const { return text_.size(); }

  // Never a null pointer.
  const char* c_str() const { return text_.c_str(); }
  const std::string& str() const { return text_; }
  std::string_view view() const { return text_; }

  // `index` must be below `length()`.
  char operator[](std::size_t index) const { return text_[index]; }

  std::size_t find(std::string_view what, std::size_t from = 0) const { return text_.find(what, from); }

  // Unlike the standard string's, a start after the end gives empty text.
  utString substr(std::size_t from, std::size_t count = npos) const;

  utString& operator+=(std::string_view more);
  utString& operator+=(const utString& more) { return *this += more.view(); }
  utString& operator+=(const char* more) { return *this += std::string_view(more ? more : ""); }

  std::size_t hash() const { return std::hash<std::string>()(text_); }

  // A copy with the case folding that every case-insensitive comparison of the system uses.
  utString lower_case() const;

  // 1 if the two are equal ignoring case, else 0.
  int case_compare(const utString& other) const;

  friend utString operator+(utString left, const utString& right) { return left += right; }
  friend bool operator==(const utString& left, const utString& right) { return left.text_ == right.text_; }
  friend bool operator==(const utString& left, const char* right) { return left.view() == (right ? right : ""); }
  friend std::strong_ordering operator<=>(const utString& left, const utString& right) {
    return left.text_ <=> right.text_;
  }

 private:
  std::string text_;
  bool null_ = true;
};

template <>
struct std::hash<utString> {
  std::size_t operator()(const utString& text) const noexcept { return text.hash(); }
};
