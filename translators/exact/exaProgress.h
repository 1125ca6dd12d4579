#pragma once

#include <Message_ProgressIndicator.hxx>

#include "exaExport.h"
#include "velabsOutput.h"

// Forwards the kernel's progress as `from` to `to` percent of a translator's progress, and stops the kernel when the
// work is cancelled.
class VELEXACT_API exaProgress : public Message_ProgressIndicator {
 public:
  exaProgress(velabsOutput& output, int from, int to) : output_(output), from_(from), to_(to) {}
  ~exaProgress() override;

 protected:
  Standard_Boolean UserBreak() override;
  void Show(const Message_ProgressScope& scope, const Standard_Boolean is_forced) override;

 private:
  velabsOutput& output_;
  int from_;
  int to_;
  int shown_ = -1;
};
