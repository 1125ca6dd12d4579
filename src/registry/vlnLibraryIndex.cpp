#include "vlnLibraryIndex.h"

#include <bit>

#include "apFileFinderEx.h"
#include "apStringCompareInsensitive.h"
#include "vln_shared_library_extension.h"

vlnLibraryIndex vlnLibraryIndex::of_libraries(const vlnTranslatorSearchPath& search_path) {
  vlnLibraryIndex index;
  index.files_ = search_path.find_by_extension(vln_shared_library_extension(), index.directory_missing_);
  index.add_names();
  return index;
}

vlnLibraryIndex vlnLibraryIndex::of_entries(const vlnSearchPath& search_path) {
  vlnLibraryIndex index;
  auto directories = search_path.directory_paths();
  while (++directories) {
    apFileFinderEx entries{apPath(directories())};
    if (entries.invalid()) index.directory_missing_ = true;
    while (++entries) index.files_.push_back(entries.path());
  }
  index.add_names();
  return index;
}

void vlnLibraryIndex::add_names() {
  names_.reserve(files_.size());
  for (const apPathName& file : files_) names_.push_back(file.last_component());
  slots_.assign(std::bit_ceil(2 * files_.size() + 1), none);
  next_.assign(files_.size(), none);
  // Backwards, so that the first file of a name becomes the first of its chain.
  for (std::size_t i = files_.size(); i-- > 0;) {
    Position& slot = slots_[slot_of(names_[i])];
    next_[i] = slot;
    slot = static_cast<Position>(i);
  }
}

std::size_t vlnLibraryIndex::slot_of(std::wstring_view name) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = ap_hash_folded(name) & mask;
  while (slots_[slot] != none && !ap_equal_folded(names_[slots_[slot]], name)) slot = (slot + 1) & mask;
  return slot;
}

std::wstring_view vlnLibraryIndex::directory_of(Position file) const {
  const std::wstring_view path = files_[file].string().view();
  return path.substr(0, path.size() - names_[file].size());
}

apPathName vlnLibraryIndex::find(std::wstring_view name) const {
  const Position first = first_named(name);
  if (first == none) return {};
  // The first directory wins; within it the exact spelling is preferred.
  for (Position at = first; at != none && directory_of(at) == directory_of(first); at = next_[at]) {
    if (names_[at] == name) return files_[at];
  }
  return files_[first];
}
