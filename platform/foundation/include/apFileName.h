#pragma once

#include <compare>

#include "apExport.h"
#include "apString.h"

// The last component of a path. The extension begins at the last dot, also at a leading one: ".x" has the extension
// "x", "x." the extension "". Two names are equal if they differ only in case.
class VELPLATFORM_API apFileName {
 public:
  apFileName() = default;
  apFileName(apString name) : name_(std::move(name)) {}

  const apString& string() const { return name_; }
  bool empty() const { return name_.empty(); }

  bool has_extension() const;
  // Without its dot; empty if the name has no extension.
  apString extension() const;
  apString without_extension() const;

  // The name with "." and `extension` appended, unless it already ends in that extension, in any case.
  apFileName add_extension(const apString& extension) const;
  // The name with its extension replaced by `extension`; appended if the name has none.
  apFileName replace_extension(const apString& extension) const;

  friend VELPLATFORM_API bool operator==(const apFileName& left, const apFileName& right);

 private:
  apString name_;
};
