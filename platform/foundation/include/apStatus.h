#pragma once

#include "utString.h"

// What one platform operation made of its work. Good until somebody says why it failed; use a fresh one for each call.
class apStatus {
 public:
  bool ok() const { return failure_.is_null(); }

  // Why it failed, for people; null while the status is good.
  const utString& failure() const { return failure_; }
  void set_failure(const utString& reason) { failure_ = reason.is_null() ? utString("") : reason; }

 private:
  utString failure_;
};
