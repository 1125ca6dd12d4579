#pragma once

#include <vector>

#include "vlnExport.h"
#include "vlnIFindByExtension.h"
#include "vlnSearchPath.h"

// Where translator libraries are looked for, with the lister that finds them. The lister is not owned; copies share it.
class VLN_API vlnTranslatorSearchPath : public vlnSearchPath {
 public:
  vlnTranslatorSearchPath() = default;
  vlnTranslatorSearchPath(vlnSearchPath directories, const vlnIFindByExtension* lister)
      : vlnSearchPath(directories), lister_(lister) {}
  vlnTranslatorSearchPath(const vlnTranslatorSearchPath&) = default;
  vlnTranslatorSearchPath& operator=(const vlnTranslatorSearchPath&) = default;
  ~vlnTranslatorSearchPath() override;

  // The files of one extension, directory by directory. `directory_missing` tells whether any directory was; the others
  // are listed all the same. Without a lister nothing is found.
  std::vector<apPathName> find_by_extension(apString extension, bool& directory_missing) const;

 private:
  const vlnIFindByExtension* lister_ = nullptr;
};
