#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "apIStringCompare.h"

class apIStringEncoding;

// Equality without regard to case. An invalid string equals nothing, not even another invalid one.
class VELPLATFORM_API apStringCompareInsensitive : public apIStringCompare {
 public:
  // Wide strings compare alike under every encoding; the argument is taken so that policies are made alike.
  explicit apStringCompareInsensitive(const apIStringEncoding* encoding);
  bool equal(const apString& left, const apString& right) const override;
};

// The system's one case fold, one character to one character, the same in every locale: the simple lower-case mapping
// of the Latin, Greek, Cyrillic, Armenian and full-width letters. Equal folded keys are equal comparisons.
VELPLATFORM_API wchar_t ap_fold(wchar_t character);
VELPLATFORM_API std::wstring ap_fold(std::wstring_view text);
// The hash of the folded text, so that keys need not be folded to be looked up.
VELPLATFORM_API std::size_t ap_hash_folded(std::wstring_view text);
VELPLATFORM_API bool ap_equal_folded(std::wstring_view left, std::wstring_view right);
