#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "apIStringCompare.h"

class apIStringEncoding;

// Equality ignoring case. An invalid string never equals another string, not even an invalid one.
class VELPLATFORM_API apStringCompareInsensitive : public apIStringCompare {
 public:
  // The encoding is not used; the parameter matches the constructors of other comparisons.
  explicit apStringCompareInsensitive(const apIStringEncoding* encoding);
  bool equal(const apString& left, const apString& right) const override;
};

// The only case folding of the system, one character to one character, the same in every locale: the simple lower-case
// mapping of the Latin, Greek, Cyrillic, Armenian and full-width letters. Two texts are equal ignoring case exactly if
// their folded texts are equal.
VELPLATFORM_API wchar_t ap_fold(wchar_t character);
VELPLATFORM_API std::wstring ap_fold(std::wstring_view text);
// The hash of the folded text, so that keys can be looked up without folding them.
VELPLATFORM_API std::size_t ap_hash_folded(std::wstring_view text);
VELPLATFORM_API bool ap_equal_folded(std::wstring_view left, std::wstring_view right);
