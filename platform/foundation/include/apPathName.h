#pragma once

#include <memory>
#include <string_view>
#include <utility>

#include "apExport.h"
#include "apFileName.h"
#include "apString.h"

// A directory or path, its text kept verbatim. Both "/" and the backslash separate components; "/" joins. A path is
// invalid exactly when its text is empty. Two paths are equal when their texts are. Copies share the text, which never
// changes.
class VELPLATFORM_API apPathName {
 public:
  apPathName() = default;
  explicit apPathName(apString path) : path_(std::make_shared<const apString>(std::move(path))) {}

  bool invalid() const { return string().empty(); }
  const apString& string() const { return path_ ? *path_ : no_path(); }

  // What stands before the last separator: "/" for "/f", empty for "f".
  apPathName dirname() const;
  // What stands behind it: empty for "d/".
  apFileName basename() const;
  // The same without a copy, valid as long as this path.
  std::wstring_view last_component() const;

  // This path and `relative` with exactly one separator between them. An empty side gives the other one unchanged; a
  // `relative` that begins with a separator never replaces this path.
  apPathName combine(const apPathName& relative) const;
  static apPathName adjoin(const apPathName& directory, const apFileName& name);

  friend bool operator==(const apPathName& left, const apPathName& right) {
    return left.path_ == right.path_ || left.string().view() == right.string().view();
  }

 private:
  static const apString& no_path();

  std::shared_ptr<const apString> path_;
};
