#include "velConsole.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "velFiles.h"
#include "velMessages.h"
#include "velText.h"

namespace {

bool is_capable_terminal() {
  const char* kind = std::getenv("TERM");
  return isatty(STDERR_FILENO) && !(kind && std::strcmp(kind, "dumb") == 0);
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

velConsole::velConsole()
    : shows_progress_(is_capable_terminal()),
      terminal_(apISynchOperations::system()),
      progress_(terminal_),
      log_(apISynchOperations::system()) {
  terminal_.add_ostream(&std::cerr);
  terminal_.auto_flush(1);
  log_.auto_flush(1);
}

void velConsole::be_quiet() {
  quiet_ = true;
  shows_progress_ = false;
}

bool velConsole::open_log(const std::string& file) {
  const vlnFile log = vel_file(file);
  if (log.create_file(vlnFileCreateAppend)) log_file_.open(log.full_path().str(), std::ios::app);
  if (!log_file_.is_open()) {
    error(vel_text(velMSG_LOG_NOT_OPENED, {file}));
    return false;
  }
  log_name_ = file;
  log_.add_ostream(&log_file_);
  return true;
}

void velConsole::message(velabsSeverity severity, std::string_view text) {
  const std::lock_guard guard(lock_);
  const std::string line = std::string("vel: ") + vel_severity_name(severity) + ": " + vel_printable(text) + "\n";
  if (!given_.insert(line).second) return;
  messages_.push_back({severity, std::string(text)});
  log_.print(line.c_str());
  if (quiet_ && severity != velabsERROR) return;
  progress_.end();
  // On a terminal, results that were printed earlier must appear before the message.
  flush_results();
  terminal_.print(line.c_str());
}

void velConsole::print(std::string_view text) {
  const std::lock_guard guard(lock_);
  progress_.end();
  std::fwrite(text.data(), 1, text.size(), stdout);
}

void velConsole::print_line(std::string_view text) {
  print(vel_printable(text) + "\n");
}

void velConsole::report(std::string_view text) {
  if (!quiet_) print_line(text);
}

void velConsole::show_progress(int percent) {
  if (!shows_progress_) return;
  const std::lock_guard guard(lock_);
  progress_.show(percent);
}

void velConsole::show_life() {
  if (!shows_progress_) return;
  const std::lock_guard guard(lock_);
  progress_.show_life();
}

void velConsole::end_progress() {
  const std::lock_guard guard(lock_);
  progress_.end();
}

std::vector<velConsole::Message> velConsole::messages() const {
  const std::lock_guard guard(lock_);
  return messages_;
}

// Keeps the errno of the first failure: a failed flush discards the buffer, so a later one may not report the failure.
bool velConsole::flush_results() {
  errno = 0;
  if (std::fflush(stdout) != 0 && print_failure_ == 0) print_failure_ = errno;
  return !std::ferror(stdout);
}

void velConsole::send_out() {
  const std::lock_guard guard(lock_);
  progress_.end();
  flush_results();
}

bool velConsole::finish() {
  end_progress();
  const bool printed = flush_results();
  if (!printed) {
    const std::string reason = print_failure_ ? std::strerror(print_failure_) : vel_text(velMSG_CANNOT_BE_WRITTEN);
    error(vel_text(velMSG_RESULTS_NOT_WRITTEN, {reason}));
  }
  const bool logged = log_name_.empty() || log_file_.good();
  if (!logged) error(vel_text(velMSG_LOG_NOT_WRITTEN, {log_name_}));
  return printed && logged;
}

void vel_tell_errors(const std::vector<std::string>& errors, const std::string& subject, const std::string& outcome,
                     velConsole& console) {
  const std::string behind = outcome.empty() ? "" : " " + outcome;
  if (errors.empty()) console.error(vel_text(velMSG_NO_REASON, {subject}) + behind);
  for (std::size_t i = 0; i < errors.size(); ++i) {
    console.error(i + 1 < errors.size() ? vel_sentence(errors[i]) : vel_sentence(errors[i]) + behind);
  }
}
