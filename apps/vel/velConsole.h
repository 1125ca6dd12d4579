#pragma once

#include <fstream>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "velProgress.h"
#include "velabsOutput.h"
#include "vlnOstream.h"

// "note", "warning" or "error".
const char* vel_severity_name(velabsSeverity severity);

// The output of the program. Results go to the standard output, messages to the standard error as "vel: warning: ...".
// Progress also goes to the standard error if that is a terminal. A log gets every message and no progress. All
// messages are kept for output as data. Thread-safe, except `be_quiet`, `open_log` and `finish`.
class velConsole {
 public:
  struct Message {
    velabsSeverity severity;
    std::string text;
  };

  velConsole();
  velConsole(const velConsole&) = delete;
  velConsole& operator=(const velConsole&) = delete;

  // From now on prints errors and results only. A log still gets notes and warnings.
  void be_quiet();

  // From now on also appends messages to this file. Returns false and reports an error when the file cannot be opened.
  bool open_log(const std::string& file);

  // Each prints one line. A message that was already printed is not repeated. Control characters are escaped, see
  // `vel_printable`.
  void note(std::string_view text) { message(velabsNOTE, text); }
  void warning(std::string_view text) { message(velabsWARNING, text); }
  void error(std::string_view text) { message(velabsERROR, text); }
  void message(velabsSeverity severity, std::string_view text);

  // Prints results. The text contains its line breaks.
  void print(std::string_view text);
  // Prints a result of one line, with control characters escaped.
  void print_line(std::string_view text);
  // Prints a line about completed work, unless quiet.
  void report(std::string_view text);

  void show_progress(int percent);
  // Shows that the work continues when its progress is unknown.
  void show_life();
  void end_progress();

  std::vector<Message> messages() const;

  // Flushes the results before further work.
  void send_out();

  // Flushes everything. Returns false and reports an error when results or the log could not be written completely.
  bool finish();

 private:
  bool flush_results();

  mutable std::mutex lock_;
  std::vector<Message> messages_;
  std::unordered_set<std::string> given_;
  bool shows_progress_;
  bool quiet_ = false;
  int print_failure_ = 0;  // errno of the first failure to print; 0 without a failure
  vlnOstream terminal_;
  velProgress progress_;
  // A separate stream: the line break after a row of progress must not appear in the log.
  vlnOstream log_;
  std::string log_name_;
  std::ofstream log_file_;
};

// Reports every error and adds the outcome to the last one. Without errors, reports that `subject` failed.
void vel_tell_errors(const std::vector<std::string>& errors, const std::string& subject, const std::string& outcome,
                     velConsole& console);
