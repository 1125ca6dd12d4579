#pragma once

#include <ostream>
#include <string_view>
#include <vector>

#include "apCriticalSection.h"
#include "apISynchOperations.h"
#include "vlnExport.h"

// Prints messages and progress to several standard streams at once. Progress is printed in rows of at most 77
// characters; a message ends the row first. Every printing operation and `add_ostream` are thread-safe: the output of
// one call is never mixed with another's. The streams are not owned and never removed.
class VLN_API vlnOstream {
 public:
  // A null pointer selects a lock of the standard library.
  explicit vlnOstream(const apISynchOperations* synch);

  // A null pointer is ignored.
  void add_ostream(std::ostream* stream);

  // Sets whether every stream is flushed after each call. Returns the previous setting. Not thread-safe.
  int auto_flush(int on);

  // Writes the text unchanged, without adding a line break. No printing operation pads: a width that is set for a
  // stream is neither used nor cleared.
  void print(const char* text);

  // Prints one dot; the 77th ends the row.
  void print_dot();

  // Prints "%07%" for 7, "%100%" for 100. Values outside 0 to 100 are clamped. A text that does not fit starts a new
  // row. After a text that fills the row exactly, the row is not ended but the column is 0.
  void print_percent(int percent);

 private:
  void write(std::string_view before, std::string_view text, std::string_view after);

  int auto_flush_ = 0;
  std::vector<std::ostream*> streams_;
  int column_ = 0;
  apCriticalSection lock_;
};
