#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "annBox.h"

// A file of tests/data, or of the directory that VEL_CORPUS names, which holds real files of others. The page
// SOURCES.md in each of them says what simple counting found in every file.
struct CorpusFile {
  std::filesystem::path path;
  std::string folder;  // "stl", or "malformed" for the broken ones of all formats
  std::string facts;

  // The number that stands behind a word of the facts: `number_behind("fan triangles")`.
  std::optional<std::size_t> number_behind(const std::string& word) const;
  // The number that stands before one.
  std::optional<std::size_t> number_before(const std::string& word) const;

  // What the facts come to, in the terms of the format; nothing where they do not say.
  std::optional<std::size_t> triangles() const;
  std::optional<std::size_t> faces() const;
  std::optional<std::size_t> vertices() const;
  std::optional<annBox> box() const;

 private:
  // "face sizes {3: 32, 4: 6}" counted with `weight` of each size.
  template <typename Weight>
  std::optional<std::size_t> sum_of_sizes(Weight weight) const;
};

// In the order of the pages, tests/data first.
std::vector<CorpusFile> corpus_files();

// True when VEL_CORPUS names a directory.
bool has_big_corpus();
