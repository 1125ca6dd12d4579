#include "vlnFindFileByExtension.h"

#include "apFileFinderEx.h"

vlnIFindByExtension::~vlnIFindByExtension() = default;

void vlnFindFileByExtension::find_by_extension(apPathName directory, apString extension, std::vector<apPathName>& files,
                                               bool& directory_missing) const {
  directory_missing = !files_->directory_exists(directory);
  if (directory_missing) return;
  apFileFinderEx entries{apPath(directory)};
  while (++entries) {
    const apFileName name = entries.file_name();
    if (name.has_extension() && compare_->equal(name.extension(), extension)) {
      files.push_back(apPathName::adjoin(directory, name));
    }
  }
}
