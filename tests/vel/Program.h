#pragma once

#include <string>
#include <vector>

#include "Running.h"
#include "TemporaryDirectory.h"

// An installation of the test's own, and directories for its work, its application data and its temporary files.
class Installation {
 public:
  // Holds the translators of the build when `with_translators`, else none.
  explicit Installation(bool with_translators = true);

  // Puts a library, or one that the tests built, on the search path.
  void add_library(const std::string& file) const;
  void add_fixture(const std::string& name) const;

  // Puts the service for units in its place.
  void add_units() const;

  std::string library(const std::string& name) const { return root / ("sys/exec/lib/" + name); }
  std::string units_library() const { return root / "sys/exec/services/unitssvc.dll"; }
  std::string program() const { return root / "sys/exec/vel"; }
  std::string cache_file() const { return home / "velbase/translators/translators.lst"; }
  std::vector<std::string> variables() const;
  Running start(std::vector<std::string> words, const std::string& out_file = "", bool terminal = false) const;
  Outcome run(std::vector<std::string> words, const std::string& out_file = "") const;
  // Expects a run to end with this code and to print each text on its standard output or its standard error.
  Outcome expect(const std::vector<std::string>& words, int code, const std::vector<std::string>& texts = {}) const;
  // The same of a run that prints an error and no result.
  void expect_error(const std::vector<std::string>& words, int code, const std::vector<std::string>& texts) const;

  // The names in the work directory, sorted.
  std::vector<std::string> files() const;

  TemporaryDirectory root, home, work, temporary;
};

// A tetrahedron.
extern const char* const tetrahedron_stl;
extern const char* const tetrahedron_obj;
