#pragma once

#include <string>
#include <vector>

#include "Running.h"
#include "TemporaryDirectory.h"

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
