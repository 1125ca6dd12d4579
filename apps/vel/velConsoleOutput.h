#pragma once

#include <mutex>
#include <string>
#include <vector>

#include "velConsole.h"
#include "velabsOutput.h"

// What the engine and the translators talk to. Notes, warnings and progress go to the console as they come; errors wait
// for the end, when it is known what became of the work as a whole.
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
