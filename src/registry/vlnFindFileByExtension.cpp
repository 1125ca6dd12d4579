#include "vlnFindFileByExtension.h"

#include <string>
#include <string_view>
#include <utility>

#include "apFileFinderEx.h"
#include "apFrustrumChooser.h"

vlnIFindByExtension::~vlnIFindByExtension() = default;

vlnFindFileByExtension::vlnFindFileByExtension(const apIFileOperations* files, const apIStringCompare* compare)
    : files_(files ? files : apFrustrumChooser().file_operations()), compare_(compare) {}

void vlnFindFileByExtension::find_by_extension(apPathName directory, apString extension, std::vector<apPathName>& files,
                                               bool& directory_missing) const {
  directory_missing = !files_->directory_exists(directory);
  if (directory_missing || !compare_) return;
  apFileFinderEx entries{apPath(directory)};
  while (++entries) {
    apPathName path = entries.path();
    const std::wstring_view name = path.last_component();
    const std::size_t dot = name.rfind(L'.');
    if (dot == name.npos || !compare_->equal(apString(std::wstring(name.substr(dot + 1))), extension)) continue;
    files.push_back(std::move(path));
  }
}
