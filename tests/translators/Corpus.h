#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "annBox.h"

// Real files of others, below the directory that VEL_CORPUS names. Its page SOURCES.md tells of each what simple
// counting found in it.
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

// In the order of the page; empty without the variable.
std::vector<CorpusFile> corpus_files();
