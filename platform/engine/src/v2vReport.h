#pragma once

#include <atomic>
#include <deque>
#include <mutex>
#include <utility>
#include <vector>

#include "utObserverPtr.h"
#include "v2vThreadComm.h"
#include "velabsOutput.h"

// Sends the messages and progress of a request to both outputs of the caller. The order does not depend on the number
// of threads. Reading is the first half of the progress, with equal shares for all inputs; writing is the second.
class v2vReport {
 public:
  v2vReport(const v2vThreadComm& comm, utObserverPtr<velabsOutput> primary, utObserverPtr<velabsOutput> secondary,
            std::size_t inputs);

  void message(velabsSeverity severity, const utString& text);

  // A message of one input: sent at once if all inputs before it are done, else kept until they are.
  void input_message(std::size_t input, velabsSeverity severity, const utString& text);
  void input_progress(std::size_t input, int percent);
  void input_done(std::size_t input);

  void writing_progress(int percent);
  void finished();

  bool cancelled() const;

 private:
  struct Message {
    velabsSeverity severity;
    utString text;
  };
  struct Input {
    std::deque<Message> waiting;
    int percent = 0;
    bool done = false;
  };

  void pass_on(const Message& message);
  void show(int percent);

  const v2vThreadComm& comm_;
  std::vector<velabsOutput*> outputs_;
  std::mutex lock_;
  std::vector<Input> inputs_;
  std::size_t turn_ = 0;  // the first input that is not done
  long long percent_sum_ = 0;
  int shown_ = 0;
};

// The output given to the translator of one file: adds the file's name to messages and records whether an error was
// reported.
class v2vFileOutput : public velabsOutput {
 public:
  bool told_error() const { return told_error_.load(std::memory_order_relaxed); }

 protected:
  explicit v2vFileOutput(utString file) : file_(std::move(file)) {}
  utString named(velabsSeverity severity, const utString& text);

 private:
  utString file_;
  std::atomic<bool> told_error_{false};
};

class v2vInputOutput final : public v2vFileOutput {
 public:
  v2vInputOutput(v2vReport& report, std::size_t input, utString file)
      : v2vFileOutput(std::move(file)), report_(report), input_(input) {}
  void message(velabsSeverity severity, const utString& text) override;
  void progress(int percent) override { report_.input_progress(input_, percent); }
  bool cancelled() const override { return report_.cancelled(); }

 private:
  v2vReport& report_;
  std::size_t input_;
};

class v2vWritingOutput final : public v2vFileOutput {
 public:
  v2vWritingOutput(v2vReport& report, utString file) : v2vFileOutput(std::move(file)), report_(report) {}
  void message(velabsSeverity severity, const utString& text) override;
  void progress(int percent) override { report_.writing_progress(percent); }
  bool cancelled() const override { return report_.cancelled(); }

 private:
  v2vReport& report_;
};
