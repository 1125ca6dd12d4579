#pragma once

#include "utString.h"
#include "vlnExport.h"

// Two strings that translate into each other. Invalid if either is null.
class VLN_API vlnStringPair {
 public:
  vlnStringPair() = default;
  vlnStringPair(const utString& s1, const utString& s2) : string1_(s1), string2_(s2) {}

  void set_strings(const utString& s1, const utString& s2) {
    string1_ = s1;
    string2_ = s2;
  }
  const utString& string1() const { return string1_; }
  const utString& string2() const { return string2_; }
  int invalid() const { return string1_.is_null() || string2_.is_null() ? 1 : 0; }

 private:
  utString string1_;
  utString string2_;
};
