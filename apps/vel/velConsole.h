#pragma once

#include <fstream>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "velProgress.h"
#include "velabsOutput.h"
#include "vlnOstream.h"

// "note", "warning" or "error".
const char* vel_severity_name(velabsSeverity severity);

// Where the program speaks: results to the standard output, messages to the standard error as "vel: warning: ...", and
// progress there too while it is a terminal. A log gets every message and no progress. Every message is also kept, for
// those who show them as data. Every operation may be called from several threads at once.
class velConsole {
 public:
  struct Message {
    velabsSeverity severity;
    std::string text;
  };

  velConsole();
  velConsole(const velConsole&) = delete;
  velConsole& operator=(const velConsole&) = delete;

  // From now on errors and results only; a log gets its notes and warnings all the same.
  void be_quiet();

  // From now on messages are appended to this file too. False, and an error was said, when they cannot be.
  bool open_log(const std::string& file);

  // One line each. Control characters are made visible.
  void note(std::string_view text) { message(velabsNOTE, text); }
  void warning(std::string_view text) { message(velabsWARNING, text); }
  void error(std::string_view text) { message(velabsERROR, text); }
  void message(velabsSeverity severity, std::string_view text);

  // Results; the text brings its line breaks along.
  void print(std::string_view text);
  // A result of one line, made printable.
  void print_line(std::string_view text);
  // A line of what was done, which nobody asked for: not when quiet.
  void report(std::string_view text);

  void show_progress(int percent);
  // The work goes on, and nobody knows how far it is.
  void show_life();
  void end_progress();

  std::vector<Message> messages() const;

  // Sends what was printed on its way, for those who go on with other work.
  void send_out();

  // False, and an error was said, when results or the log could not be written out whole.
  bool finish();

 private:
  bool flush_results();

  mutable std::mutex lock_;
  std::vector<Message> messages_;
  bool shows_progress_;
  bool quiet_ = false;
  int print_failure_ = 0;  // the system's number of the first one
  vlnOstream terminal_;
  velProgress progress_;
  // A stream of its own: what ends a row of progress on the terminal must leave no trace in the log.
  vlnOstream log_;
  std::string log_name_;
  std::ofstream log_file_;
};

// Says every error, the outcome behind the last one; when there is none, that `subject` failed.
void vel_tell_errors(const std::vector<std::string>& errors, const std::string& subject, const std::string& outcome,
                     velConsole& console);
