#include "velConsoleOutput.h"

#include "velInterrupt.h"

void velConsoleOutput::message(velabsSeverity severity, const utString& text) {
  if (severity != velabsERROR) {
    console_.message(severity, text.view());
    return;
  }
  const std::lock_guard guard(lock_);
  errors_.push_back(text.str());
}

void velConsoleOutput::progress(int percent) {
  console_.show_progress(percent);
}

bool velConsoleOutput::cancelled() const {
  console_.show_life();
  return vel_interrupted();
}

std::vector<std::string> velConsoleOutput::errors() const {
  const std::lock_guard guard(lock_);
  return errors_;
}
