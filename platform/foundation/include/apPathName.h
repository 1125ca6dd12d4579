#pragma once

#include <memory>
#include <string_view>
#include <utility>

#include "apExport.h"
#include "apFileName.h"
#include "apString.h"

class apIStringEncoding;

// A directory or path; its text is kept unchanged. Both "/" and the backslash separate components; "/" joins them. A
// path is invalid exactly when its text is empty. Two paths are equal if their texts are equal. Copies share the text,
// which is immutable.
//
// On disk a name is bytes. A path has the encoding that converts its text to these bytes. If the encoding cannot
// represent the text, it is converted to UTF-8 instead. Paths derived from a path, and the entries listed in a
// directory, have the encoding of that path.
class VELPLATFORM_API apPathName {
 public:
  apPathName() = default;
  // A null encoding is the default one, UTF-8. The encoding is not owned.
  explicit apPathName(apString path, const apIStringEncoding* encoding = nullptr)
      : path_(std::make_shared<const Path>(Path{std::move(path), encoding})) {}

  bool invalid() const { return string().empty(); }
  const apString& string() const { return path_ ? path_->text : no_path(); }
  // Null for the default encoding.
  const apIStringEncoding* encoding() const { return path_ ? path_->encoding : nullptr; }

  // The text before the last separator: "/" for "/f", empty for "f".
  apPathName dirname() const;
  // The text after the last separator: empty for "d/".
  apFileName basename() const;
  // The same without a copy, valid as long as this path.
  std::wstring_view last_component() const;

  // This path and `relative` with exactly one separator between them. An empty side gives the other one unchanged. A
  // `relative` that begins with a separator does not replace this path.
  apPathName combine(const apPathName& relative) const;
  static apPathName adjoin(const apPathName& directory, const apFileName& name);

  friend bool operator==(const apPathName& left, const apPathName& right) {
    return left.path_ == right.path_ || left.string().view() == right.string().view();
  }

 private:
  struct Path {
    apString text;
    const apIStringEncoding* encoding;
  };

  static const apString& no_path();

  std::shared_ptr<const Path> path_;
};
