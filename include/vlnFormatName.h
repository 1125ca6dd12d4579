#pragma once

#include <cstddef>
#include <functional>
#include <utility>

#include "apIStringCompare.h"
#include "apIStringEncoding.h"
#include "apString.h"
#include "utString.h"
#include "vlnExport.h"

// The name of a data format, with the policies by which it is converted and compared. Neither policy is owned; both
// must outlive the uses of the name, not the name itself.
class VLN_API vlnFormatName {
 public:
  // A placeholder until a whole name is assigned: `invalid`, equal to nothing by `case_compare`, null as text.
  vlnFormatName() = default;
  vlnFormatName(apString name, const apIStringEncoding* encoding, const apIStringCompare* compare)
      : name_(std::move(name)), encoding_(encoding), compare_(compare) {}

  bool invalid() const { return name_.invalid(); }
  const apString& string() const { return name_; }
  utString ut_string() const;

  // Equality by the name's own comparison: without regard to case in this system.
  bool case_compare(const apString& other) const;

  // Character by character; the policies play no part.
  friend bool operator==(const vlnFormatName& left, const vlnFormatName& right) { return left.name_ == right.name_; }

 private:
  apString name_;
  const apIStringEncoding* encoding_ = nullptr;
  const apIStringCompare* compare_ = nullptr;
};

template <>
struct std::hash<vlnFormatName> {
  // Not noexcept, so that the standard containers keep the hash and do not work it out again at every step.
  std::size_t operator()(const vlnFormatName& name) const { return co_hash(name.string()); }
};
