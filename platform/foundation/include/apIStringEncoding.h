#pragma once

#include <string>
#include <string_view>

#include "apExport.h"
#include "apStatus.h"
#include "apString.h"
#include "utString.h"

// Converts between the wide strings of the platform and bytes: the bytes of a `utString`, or the 8-bit bytes of a file.
// If a text cannot be converted the status is set and the result is an unset string; no exception is thrown. An empty
// or null string becomes valid and empty; an invalid one becomes null.
class VELPLATFORM_API apIStringEncoding {
 public:
  virtual ~apIStringEncoding();

  utString to_utString(const apString& text, apStatus& status) const;
  apString to_apString(const utString& text, apStatus& status) const;

  // For text that this encoding can represent, or where an unset result is a sufficient error.
  utString to_utString(const apString& text) const;
  apString to_apString(const utString& text) const;

  // Appends to `bytes`. On failure sets the status; `bytes` then ends before the first character that failed.
  virtual void encode(std::wstring_view text, std::string& bytes, apStatus& status) const = 0;
  virtual void decode(std::string_view bytes, std::wstring& text, apStatus& status) const = 0;
};
