#pragma once

#include "exaExport.h"
#include "velabsOutput.h"

// Passes on what is said in the midst of the kernel's work, where everything printed on the thread is dropped else.
class VELEXACT_API exaOutput : public velabsOutput {
 public:
  explicit exaOutput(velabsOutput& target) : target_(target) {}

  void message(velabsSeverity severity, const utString& text) override;
  void progress(int percent) override;
  bool cancelled() const override { return target_.cancelled(); }

 private:
  velabsOutput& target_;
};
