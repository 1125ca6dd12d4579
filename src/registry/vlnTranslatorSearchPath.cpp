#include "vlnTranslatorSearchPath.h"

#include "vln_shared_library_extension.h"

vlnTranslatorSearchPath::~vlnTranslatorSearchPath() = default;

std::vector<apPathName> vlnTranslatorSearchPath::find_by_extension(apString extension, bool& directory_missing) const {
  std::vector<apPathName> files;
  directory_missing = false;
  if (!lister_) return files;
  auto directories = directory_paths();
  while (++directories) {
    bool this_one_missing = false;
    lister_->find_by_extension(directories(), extension, files, this_one_missing);
    if (this_one_missing) directory_missing = true;
  }
  return files;
}

apString vln_shared_library_extension() {
  return L"dll";
}
