#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <vector>

#include "apPathName.h"
#include "vlnTranslatorSearchPath.h"

// The entries of the directories of a search path, listed once, so that thousands of names are looked up without
// listing again. A snapshot.
class vlnLibraryIndex {
 public:
  vlnLibraryIndex(vlnLibraryIndex&&) = default;
  vlnLibraryIndex& operator=(vlnLibraryIndex&&) = delete;

  // The shared libraries found by the search path's lister.
  static vlnLibraryIndex of_libraries(const vlnTranslatorSearchPath& search_path);

  // Every entry of the directories, whatever its extension.
  static vlnLibraryIndex of_entries(const vlnSearchPath& search_path);

  // In the order of the search path.
  const std::vector<apPathName>& files() const { return files_; }
  bool directory_missing() const { return directory_missing_; }

  // Returns the same as `vlnSearchPath::search`.
  apPathName find(std::wstring_view name) const;

  // Calls `use(position)` with the position in `files` of each file named `name`, ignoring case.
  template <typename Use>
  void for_each_named(std::wstring_view name, Use use) const {
    for (Position at = first_named(name); at != none; at = next_[at]) use(at);
  }

 private:
  vlnLibraryIndex() = default;

  using Position = std::uint32_t;
  static constexpr Position none = std::numeric_limits<Position>::max();

  void add_names();
  std::size_t slot_of(std::wstring_view name) const;
  std::wstring_view directory_of(Position file) const;
  Position first_named(std::wstring_view name) const { return slots_.empty() ? none : slots_[slot_of(name)]; }

  std::vector<apPathName> files_;
  std::vector<std::wstring_view> names_;  // the last components, within `files_`
  bool directory_missing_ = false;

  // A flat hash table from folded names to the first file of that name. Its size is a power of two, and it is at most
  // half full. `next_` links each file to the next one of its name.
  std::vector<Position> slots_;
  std::vector<Position> next_;
};
