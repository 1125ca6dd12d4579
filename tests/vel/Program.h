#pragma once

#include <string>
#include <vector>

#include "TemporaryDirectory.h"

// One run of a program: what it said and how it ended.
struct Outcome {
  int code = -1;    // -1 when a signal ended it
  std::string out;  // standard output
  std::string err;  // standard error
};

// A running program with an environment of its own.
class Running {
 public:
  // `variables` ("NAME=VALUE") are all the environment that it gets; it runs in `directory`. With `terminal` its
  // standard error is a terminal, whose line ends come out as "\r\n".
  Running(const std::vector<std::string>& words, const std::vector<std::string>& variables,
          const std::string& directory, const std::string& out_file = "", bool terminal = false);

  // Waits until the standard error holds `text`; false when the program ends before that or a minute has gone.
  bool wait_for_error(const std::string& text);
  // Waits until a file holds `text`; false when it does not after a long while.
  static bool wait_for_file(const std::string& file, const std::string& text);
  void signal(int number) const;
  Outcome finish();

 private:
  bool read_some();

  int process_ = -1;
  int out_ = -1;
  int err_ = -1;
  Outcome outcome_;
};

// An installation of the test's own, a work directory and an application data directory.
class Installation {
 public:
  // Holds the translators of the build when `with_translators`, else none.
  explicit Installation(bool with_translators = true);

  // Puts a library that the tests built on the search path.
  void add_library(const std::string& file) const;
  void add_fixture(const std::string& name) const;

  // Puts the service for units in its place.
  void add_units() const;

  std::string library(const std::string& name) const { return root_ / ("sys/exec/lib/" + name); }
  std::string units_library() const { return root_ / "sys/exec/services/unitssvc.dll"; }
  std::string program() const { return root_ / "sys/exec/vel"; }
  std::string cache_file() const { return home_ / "velbase/translators/translators.lst"; }
  const TemporaryDirectory& root() const { return root_; }
  const TemporaryDirectory& home() const { return home_; }
  const TemporaryDirectory& work() const { return work_; }

  std::vector<std::string> variables() const;
  Running start(std::vector<std::string> words, const std::string& out_file = "", bool terminal = false) const;
  Outcome run(std::vector<std::string> words, const std::string& out_file = "") const;

  // The names in the work directory, sorted.
  std::vector<std::string> files() const;

 private:
  TemporaryDirectory root_;
  TemporaryDirectory home_;
  TemporaryDirectory work_;
};

// A tetrahedron.
extern const char* const tetrahedron_stl;
extern const char* const tetrahedron_obj;
