#include "vlnLibraryIndex.h"

#include <string_view>

#include "apFileFinderEx.h"
#include "apStringCompareInsensitive.h"
#include "vln_shared_library_extension.h"

namespace {

std::wstring_view directory_of(const apPathName& path) {
  const std::wstring_view text = path.string().view();
  const std::size_t separator = text.find_last_of(L"/\\");
  return separator == text.npos ? std::wstring_view() : text.substr(0, separator);
}

}  // namespace

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
    while (++entries) index.files_.push_back(apPathName::adjoin(directories(), entries.file_name()));
  }
  index.add_names();
  return index;
}

void vlnLibraryIndex::add_names() {
  places_.reserve(files_.size());
  std::size_t directory = 0;
  for (std::size_t i = 0; i < files_.size(); ++i) {
    if (i > 0 && directory_of(files_[i]) != directory_of(files_[i - 1])) ++directory;
    places_[ap_fold(files_[i].basename().string().view())].push_back({directory, i});
  }
}

apPathName vlnLibraryIndex::find(const apFileName& name) const {
  auto entry = places_.find(ap_fold(name.string().view()));
  if (entry == places_.end()) return {};
  const std::vector<Place>& places = entry->second;
  for (const Place& place : places) {
    if (place.directory != places.front().directory) break;
    if (files_[place.file].basename().string() == name.string()) return files_[place.file];
  }
  return files_[places.front().file];
}
