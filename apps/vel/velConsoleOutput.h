#pragma once

#include <mutex>
#include <string>
#include <vector>

#include "velConsole.h"
#include "velabsOutput.h"

// Receives messages and progress from the engine and the translators. Notes, warnings and progress go to the console at
// once. Errors are collected, because their text depends on the outcome of the whole request.
class velConsoleOutput : public velabsOutput {
 public:
  // The console must outlive it.
  explicit velConsoleOutput(velConsole& console) : console_(console) {}

  void message(velabsSeverity severity, const utString& text) override;
  void progress(int percent) override;
  bool cancelled() const override;

  // The errors so far, in the order in which they came.
  std::vector<std::string> errors() const;

 private:
  velConsole& console_;
  mutable std::mutex lock_;
  std::vector<std::string> errors_;
};
