#pragma once

#include <atomic>
#include <mutex>
#include <stdexcept>
#include <string>
#include <vector>

#include "velabsOutput.h"

// Keeps messages and steps of progress, and cancels or throws where a test asks for it.
class RecordingOutput : public velabsOutput {
 public:
  void message(velabsSeverity, const utString& text) override {
    std::lock_guard guard(lock_);
    messages.push_back(text.str());
    if (throws) throw std::runtime_error("a host that fails");
  }
  void progress(int percent) override {
    std::lock_guard guard(lock_);
    steps.push_back(percent);
    if (percent >= cancel_at) cancel = true;
  }
  bool cancelled() const override { return cancel; }

  std::vector<std::string> messages;
  std::vector<int> steps;
  std::atomic<bool> cancel{false};
  int cancel_at = 101;
  bool throws = false;

 private:
  std::mutex lock_;
};
