#include "vlnFormatName.h"

utString vlnFormatName::ut_string() const {
  return encoding_ ? encoding_->to_utString(name_) : utString();
}

bool vlnFormatName::case_compare(const apString& other) const {
  return compare_ && compare_->equal(name_, other);
}
