#pragma once

#include "utString.h"

// The key of a service: a name, ordered by its bytes.
class vluServiceKey {
 public:
  explicit vluServiceKey(utString name) : name_(std::move(name)) {}
  const utString& get_name() const { return name_; }
  friend bool operator<(const vluServiceKey& left, const vluServiceKey& right) { return left.name_ < right.name_; }

 private:
  utString name_;
};
