#include "utString.h"

#include <algorithm>

#include "apStringCompareInsensitive.h"
#include "apUtf8.h"

namespace {

char fold_ascii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

std::wstring folded(std::string_view bytes) {
  std::wstring text;
  ap_decode_utf8(bytes, text);
  return ap_fold(text);
}

}  // namespace

utString utString::substr(std::size_t from, std::size_t count) const {
  return utString(from < text_.size() ? view().substr(from, count) : std::string_view());
}

utString& utString::operator+=(std::string_view more) {
  text_ += more;
  null_ = false;
  return *this;
}

utString utString::lower_case() const {
  utString lower = *this;
  const std::size_t plain = ap_ascii_prefix(view());
  std::transform(lower.text_.begin(), lower.text_.begin() + static_cast<std::ptrdiff_t>(plain), lower.text_.begin(),
                 fold_ascii);
  if (plain < text_.size()) {
    lower.text_.resize(plain);
    ap_encode_utf8(folded(view().substr(plain)), lower.text_);
  }
  return lower;
}

int utString::case_compare(const utString& other) const {
  const std::string_view left = view();
  const std::string_view right = other.view();
  std::size_t i = 0;
  for (; i < left.size() && i < right.size(); ++i) {
    if ((left[i] | right[i]) & 0x80) return folded(left.substr(i)) == folded(right.substr(i)) ? 1 : 0;
    if (fold_ascii(left[i]) != fold_ascii(right[i])) return 0;
  }
  return left.size() == right.size() ? 1 : 0;
}
