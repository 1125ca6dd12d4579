#include "velConsole.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "velText.h"

namespace {

bool is_capable_terminal() {
  const char* kind = std::getenv("TERM");
  return isatty(STDERR_FILENO) && !(kind && std::strcmp(kind, "dumb") == 0);
}

void write_error(const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stderr);
}

}  // namespace

const char* vel_severity_name(velabsSeverity severity) {
  switch (severity) {
    case velabsNOTE:
      return "note";
    case velabsWARNING:
      return "warning";
    case velabsERROR:
      break;
  }
  return "error";
}

velConsole::velConsole() : shows_progress_(is_capable_terminal()) {}

void velConsole::be_quiet() {
  quiet_ = true;
  shows_progress_ = false;
}

void velConsole::message(velabsSeverity severity, std::string_view text) {
  const std::lock_guard guard(lock_);
  messages_.push_back({severity, std::string(text)});
  if (quiet_ && severity == velabsNOTE) return;
  erase_progress();
  // What was printed before comes before it on a terminal too.
  std::fflush(stdout);
  // One write, so that lines of several processes do not mix.
  write_error(std::string("vel: ") + vel_severity_name(severity) + ": " + vel_printable(text) + "\n");
}

void velConsole::print(std::string_view text) {
  const std::lock_guard guard(lock_);
  erase_progress();
  std::fwrite(text.data(), 1, text.size(), stdout);
}

void velConsole::show_progress(int percent) {
  if (!shows_progress_) return;
  const std::lock_guard guard(lock_);
  percent = std::clamp(percent, 0, 100);
  if (percent == percent_ && drawn_ > 0) return;
  percent_ = percent;
  char line[32];
  const int length = std::snprintf(line, sizeof line, "vel: %3d %%", percent);
  drawn_ = static_cast<std::size_t>(length);
  write_error(std::string("\r") + line);
}

void velConsole::clear_progress() {
  const std::lock_guard guard(lock_);
  erase_progress();
}

void velConsole::erase_progress() {
  if (drawn_ == 0) return;
  // A Ctrl-C shows as two more characters on that line.
  write_error("\r" + std::string(drawn_ + 2, ' ') + "\r");
  drawn_ = 0;
}

std::vector<velConsole::Message> velConsole::messages() const {
  const std::lock_guard guard(lock_);
  return messages_;
}

bool velConsole::finish() {
  clear_progress();
  errno = 0;
  if (std::fflush(stdout) == 0 && !std::ferror(stdout)) return true;
  error(std::string("the standard output: ") + (errno ? std::strerror(errno) : "it cannot be written") +
        ". The results are incomplete; write them somewhere else.");
  return false;
}

void vel_tell_errors(const std::vector<std::string>& errors, const std::string& subject, const std::string& outcome,
                     velConsole& console) {
  if (errors.empty()) console.error(subject + ": it failed and no reason was given. " + outcome);
  for (std::size_t i = 0; i < errors.size(); ++i) {
    console.error(i + 1 < errors.size() ? vel_sentence(errors[i]) : vel_sentence(errors[i]) + " " + outcome);
  }
}
