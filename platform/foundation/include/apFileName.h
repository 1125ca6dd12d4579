#pragma once

#include <compare>

#include "apExport.h"
#include "apString.h"

// The last component of a path. The extension begins at the last dot, a leading one included: ".x" has the extension
// "x", "x." the extension "". Two names are equal when they differ in nothing but case.
class VELPLATFORM_API apFileName {
 public:
  apFileName() = default;
  apFileName(apString name) : name_(std::move(name)) {}

  const apString& string() const { return name_; }
  bool empty() const { return name_.empty(); }

  bool has_extension() const;
  // Without its dot; empty when there is none.
  apString extension() const;
  apString without_extension() const;

  // The name with "." and `extension` behind it, unless it ends in that extension already, in any case.
  apFileName add_extension(const apString& extension) const;
  // The name with `extension` in place of the one that it has, or added when it has none.
  apFileName replace_extension(const apString& extension) const;

  friend VELPLATFORM_API bool operator==(const apFileName& left, const apFileName& right);

 private:
  apString name_;
};
