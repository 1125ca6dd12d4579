#pragma once

#include "utString.h"

// The result of one platform operation. Good until a failure is set; use a new object for each call.
class apStatus {
 public:
  bool ok() const { return failure_.is_null(); }

  // The reason for the failure, as human-readable text; null while the status is good.
  const utString& failure() const { return failure_; }
  void set_failure(const utString& reason) { failure_ = reason.is_null() ? utString("") : reason; }

 private:
  utString failure_;
};
