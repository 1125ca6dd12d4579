#pragma once

#include <ostream>
#include <string_view>
#include <vector>

#include "apCriticalSection.h"
#include "apISynchOperations.h"
#include "vlnExport.h"

// Prints messages and progress to several standard streams at once. Progress grows along a row of at most 77
// characters; a message ends the row first. Every printing operation and `add_ostream` may be called from several
// threads: what one call prints is never mixed with another's. The streams are not owned and never removed.
class VLN_API vlnOstream {
 public:
  // A null pointer makes the lock from the standard library.
  explicit vlnOstream(const apISynchOperations* synch);

  // A null pointer is ignored.
  void add_ostream(std::ostream* stream);

  // Whether every stream is flushed after each call; returns what held before. Not for several threads.
  int auto_flush(int on);

  // Writes the text as it is; a line break belongs to the text. No printing operation pads: a width that is set for a
  // stream stays set.
  void print(const char* text);

  // One more dot; the 77th ends the row.
  void print_dot();

  // "%07%" for 7, "%100%" for 100; values outside 0 to 100 are taken as the nearer bound. A text that does not fit goes
  // to a new row. One that fills the row exactly leaves the row unfinished and the column at its start.
  void print_percent(int percent);

 private:
  void write(std::string_view before, std::string_view text, std::string_view after);

  int auto_flush_ = 0;
  std::vector<std::ostream*> streams_;
  int column_ = 0;
  apCriticalSection lock_;
};
