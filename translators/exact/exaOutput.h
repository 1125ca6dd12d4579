#pragma once

#include "exaExport.h"
#include "velabsOutput.h"

// Forwards messages and progress during the kernel's work, when all other output of the thread is dropped.
class VELEXACT_API exaOutput : public velabsOutput {
 public:
  explicit exaOutput(velabsOutput& target) : target_(target) {}

  void message(velabsSeverity severity, const utString& text) override;
  void progress(int percent) override;
  bool cancelled() const override { return target_.cancelled(); }

 private:
  velabsOutput& target_;
};
