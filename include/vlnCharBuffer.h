#pragma once

#include <cstddef>
#include <vector>

#include "vlnExport.h"

// Collects text and hands it on in one piece: to `write_out`, once the text with its terminating NUL is longer than a
// limit, or when it is flushed. Not for several threads. A derived class that wants the rest flushes before it is
// destroyed.
class VLN_API vlnCharBuffer {
 public:
  virtual ~vlnCharBuffer();

  // Takes what is buffered; the buffer is emptied afterwards.
  virtual void write_out() = 0;

  explicit vlnCharBuffer(int limit);

  // An empty or null text does nothing.
  void add(const char* text);

  // Writes out whatever is there, also nothing.
  void flush();

 protected:
  // What is buffered, ending in a NUL.
  const char* text() const { return text_.data(); }
  std::size_t length() const { return text_.size() - 1; }

 private:
  void empty();

  std::vector<char> text_;
  int limit_;
};
