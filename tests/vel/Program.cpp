#include "Program.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace fs = std::filesystem;

const char* const tetrahedron_stl =
    "solid tetrahedron\n"
    "facet normal 0 0 -1\nouter loop\nvertex 0 0 0\nvertex 0 1 0\nvertex 1 0 0\nendloop\nendfacet\n"
    "facet normal 0 -1 0\nouter loop\nvertex 0 0 0\nvertex 1 0 0\nvertex 0 0 2\nendloop\nendfacet\n"
    "facet normal -1 0 0\nouter loop\nvertex 0 0 0\nvertex 0 0 2\nvertex 0 1 0\nendloop\nendfacet\n"
    "facet normal 1 1 1\nouter loop\nvertex 1 0 0\nvertex 0 1 0\nvertex 0 0 2\nendloop\nendfacet\n"
    "endsolid tetrahedron\n";

const char* const tetrahedron_obj =
    "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 0 0 2\n"
    "f 1 3 2\nf 1 2 4\nf 1 4 3\nf 2 3 4\n";

Installation::Installation(bool with_translators) {
  const fs::path built = VEL_BUILT_ROOT;
  fs::create_directories(root / "sys/exec/lib");
  fs::copy_file(built / "sys/exec/vel", program());
  fs::create_directory_symlink(built / VEL_LIBRARY_DIR, root / VEL_LIBRARY_DIR);
  fs::copy(built / "sys/schemas", root / "sys/schemas", fs::copy_options::recursive);
  if (!with_translators) return;
  for (const char* name : {"stlreader", "stlwriter", "objreader", "objwriter"}) {
    add_library((built / "sys/exec/lib" / name).string() + ".dll");
  }
}

void Installation::add_library(const std::string& file) const {
  fs::copy_file(file, library(fs::path(file).filename()));
}

void Installation::add_units() const {
  fs::create_directories(fs::path(units_library()).parent_path());
  fs::copy_file(fs::path(VEL_BUILT_ROOT) / "sys/exec/services/unitssvc.dll", units_library(),
                fs::copy_options::overwrite_existing);
}

void Installation::add_fixture(const std::string& name) const {
  add_library(std::string(VEL_FIXTURES "/") + name);
}

std::vector<std::string> Installation::variables() const {
  const std::string data = home.path();
  return {"QRM_HOME=" + data, "HOME=" + data, "TMPDIR=" + temporary.path().string(), "PATH=/usr/bin:/bin",
          "TERM=xterm"};
}

Running Installation::start(std::vector<std::string> words, const std::string& out_file, bool terminal) const {
  words.insert(words.begin(), program());
  return Running(words, variables(), work.path(), out_file, terminal);
}

Outcome Installation::run(std::vector<std::string> words, const std::string& out_file) const {
  return start(std::move(words), out_file).finish();
}

Outcome Installation::expect(const std::vector<std::string>& words, int code,
                             const std::vector<std::string>& texts) const {
  std::string line;
  for (const std::string& word : words) line += word + " ";
  const Outcome outcome = run(words);
  const std::string printed = outcome.out + outcome.err;
  EXPECT_EQ(outcome.code, code) << line << printed;
  for (const auto& text : texts) EXPECT_NE(printed.find(text), std::string::npos) << line << printed;
  return outcome;
}

void Installation::expect_error(const std::vector<std::string>& words, int code,
                                const std::vector<std::string>& texts) const {
  const Outcome outcome = expect(words, code, texts);
  EXPECT_EQ(outcome.out, "");
  EXPECT_TRUE(outcome.err.starts_with("vel: error: ")) << outcome.err;
}

std::vector<std::string> Installation::files() const {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(work.path())) names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}
