#include "v2vReport.h"

#include <algorithm>

#include "v2vGuard.h"

v2vReport::v2vReport(const v2vThreadComm& comm, utObserverPtr<velabsOutput> primary,
                     utObserverPtr<velabsOutput> secondary, std::size_t inputs)
    : comm_(comm), inputs_(inputs) {
  if (primary) outputs_.push_back(primary.get());
  if (secondary && !(secondary == primary)) outputs_.push_back(secondary.get());
}

void v2vReport::pass_on(const Message& message) {
  utString ignored;
  for (velabsOutput* output : outputs_) {
    v2v_guarded([&] { output->message(message.severity, message.text); }, ignored);
  }
}

void v2vReport::show(int percent) {
  if (percent <= shown_) return;
  shown_ = percent;
  utString ignored;
  for (velabsOutput* output : outputs_) v2v_guarded([&] { output->progress(percent); }, ignored);
}

void v2vReport::message(velabsSeverity severity, const utString& text) {
  std::lock_guard guard(lock_);
  pass_on({severity, text});
}

void v2vReport::input_message(std::size_t input, velabsSeverity severity, const utString& text) {
  std::lock_guard guard(lock_);
  if (input == turn_) {
    pass_on({severity, text});
  } else {
    inputs_[input].waiting.push_back({severity, text});
  }
}

void v2vReport::input_progress(std::size_t input, int percent) {
  std::lock_guard guard(lock_);
  int& known = inputs_[input].percent;
  percent = std::clamp(percent, known, 100);
  percent_sum_ += percent - known;
  known = percent;
  show(static_cast<int>(percent_sum_ / (2 * static_cast<long long>(inputs_.size()))));
}

void v2vReport::input_done(std::size_t input) {
  input_progress(input, 100);
  std::lock_guard guard(lock_);
  inputs_[input].done = true;
  while (turn_ < inputs_.size() && inputs_[turn_].done) {
    if (++turn_ == inputs_.size()) return;
    for (const Message& message : inputs_[turn_].waiting) pass_on(message);
    inputs_[turn_].waiting.clear();
  }
}

void v2vReport::writing_progress(int percent) {
  std::lock_guard guard(lock_);
  // 100 percent is shown only when the output is complete.
  show(std::min(50 + std::clamp(percent, 0, 100) / 2, 99));
}

void v2vReport::finished() {
  std::lock_guard guard(lock_);
  show(100);
}

bool v2vReport::cancelled() const {
  if (comm_.cancelled()) return true;
  bool wanted = false;
  utString ignored;
  for (const velabsOutput* output : outputs_) {
    v2v_guarded([&] { wanted = wanted || output->cancelled(); }, ignored);
  }
  return wanted;
}

utString v2vFileOutput::named(velabsSeverity severity, const utString& text) {
  if (severity == velabsERROR) told_error_.store(true, std::memory_order_relaxed);
  return file_ + ": " + text;
}

void v2vInputOutput::message(velabsSeverity severity, const utString& text) {
  report_.input_message(input_, severity, named(severity, text));
}

void v2vWritingOutput::message(velabsSeverity severity, const utString& text) {
  report_.message(severity, named(severity, text));
}
