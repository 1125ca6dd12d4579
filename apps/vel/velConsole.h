#pragma once

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "velabsOutput.h"

// "note", "warning" or "error".
const char* vel_severity_name(velabsSeverity severity);

// Where the program speaks: results to the standard output, messages to the standard error as "vel: warning: ...", and
// one line of progress that is redrawn in place while the standard error is a terminal. Every message is also kept, for
// those who show them as data. Every operation may be called from several threads at once.
class velConsole {
 public:
  struct Message {
    velabsSeverity severity;
    std::string text;
  };

  velConsole();

  // No progress and no notes from now on.
  void be_quiet();

  // One line each. Control characters are made visible.
  void note(std::string_view text) { message(velabsNOTE, text); }
  void warning(std::string_view text) { message(velabsWARNING, text); }
  void error(std::string_view text) { message(velabsERROR, text); }
  void message(velabsSeverity severity, std::string_view text);

  // Results; the text brings its line breaks along.
  void print(std::string_view text);

  void show_progress(int percent);
  void clear_progress();

  std::vector<Message> messages() const;

  // False, and an error was said, when results could not be written out whole.
  bool finish();

 private:
  void erase_progress();

  mutable std::mutex lock_;
  std::vector<Message> messages_;
  bool shows_progress_;
  bool quiet_ = false;
  int percent_ = -1;
  std::size_t drawn_ = 0;  // characters of progress that stand on the line
};

// Says every error, the outcome behind the last one; when there is none, that `subject` failed.
void vel_tell_errors(const std::vector<std::string>& errors, const std::string& subject, const std::string& outcome,
                     velConsole& console);
