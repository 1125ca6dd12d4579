#pragma once

#include <cstddef>
#include <vector>

#include "vlnExport.h"

// Collects text and passes it to `write_out` in one piece: when the text and its terminating NUL exceed a limit, or
// when it is flushed. Not thread-safe. The destructor does not flush: a derived class that needs the remaining text
// flushes first.
class VLN_API vlnCharBuffer {
 public:
  virtual ~vlnCharBuffer();

  // Receives the buffered text through `text` and `length`. The buffer is emptied afterwards.
  virtual void write_out() = 0;

  explicit vlnCharBuffer(int limit);

  // Does nothing for an empty or null text.
  void add(const char* text);

  // Calls `write_out`, also when the buffer is empty.
  void flush();

 protected:
  // The buffered text, terminated by NUL.
  const char* text() const { return text_.data(); }
  std::size_t length() const { return text_.size() - 1; }

 private:
  void empty();

  std::vector<char> text_;
  int limit_;
};
