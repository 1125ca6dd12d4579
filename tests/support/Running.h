#pragma once

#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "TemporaryDirectory.h"

// One run of a program: what it said and how it ended.
struct Outcome {
  int code = -1;    // -1 when a signal ended it
  std::string out;  // standard output
  std::string err;  // standard error
};

// A running program with an environment of its own. What it says is kept in files.
class Running {
 public:
  // `variables` ("NAME=VALUE") are all the environment that it gets; it runs in `directory`. With `terminal` its
  // standard error is a terminal, whose line ends come out as "\r\n".
  Running(const std::vector<std::string>& words, const std::vector<std::string>& variables,
          const std::string& directory, const std::string& out_file = "", bool terminal = false);

  // Waits until the standard error holds `text`; false when it does not after a minute.
  bool wait_for_error(const std::string& text) const { return wait_for_file(*outputs_ / "err", text); }
  // Waits until a file holds `text`; false when it does not after a minute.
  static bool wait_for_file(const std::string& file, const std::string& text);
  void signal(int number) const;
  Outcome finish();

 private:
  std::unique_ptr<TemporaryDirectory> outputs_ = std::make_unique<TemporaryDirectory>();
  std::jthread terminal_;  // writes what comes from the terminal to the file of the standard error
  int process_ = -1;
};
