#pragma once

#include "utString.h"

// The bytes to write for a text: UTF-8 is unchanged, a null pointer gives "".
class ubBufferMB {
 public:
  explicit ubBufferMB(const char* text) : text_(text ? text : "") {}
  const char* text() const { return text_; }

 private:
  const char* text_;
};
