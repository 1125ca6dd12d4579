#pragma once

#include <cstddef>
#include <functional>
#include <utility>

#include "apIStringCompare.h"
#include "apIStringEncoding.h"
#include "apString.h"
#include "utString.h"
#include "vlnExport.h"

// The name of a data format, with its text encoding and its comparison. Neither is owned; both must outlive all use of
// the name, but not the name itself.
class VLN_API vlnFormatName {
 public:
  // A placeholder until a name is assigned: it is `invalid`, `case_compare` is always false, and its text is null.
  vlnFormatName() = default;
  vlnFormatName(apString name, const apIStringEncoding* encoding, const apIStringCompare* compare)
      : name_(std::move(name)), encoding_(encoding), compare_(compare) {}

  bool invalid() const { return name_.invalid(); }
  const apString& string() const { return name_; }
  utString ut_string() const;

  // Compares with the name's own comparison, which ignores case in this system.
  bool case_compare(const apString& other) const;

  // Compares character by character, without the encoding and the comparison.
  friend bool operator==(const vlnFormatName& left, const vlnFormatName& right) { return left.name_ == right.name_; }

 private:
  apString name_;
  const apIStringEncoding* encoding_ = nullptr;
  const apIStringCompare* compare_ = nullptr;
};

template <>
struct std::hash<vlnFormatName> {
  // Not noexcept, so that the standard containers store the hash and do not compute it again at every step.
  std::size_t operator()(const vlnFormatName& name) const { return co_hash(name.string()); }
};
