#pragma once

#include <vector>

#include "vlnExport.h"
#include "vlnIFindByExtension.h"
#include "vlnSearchPath.h"

// The directories searched for translator libraries, with the lister that finds them. The lister is not owned; copies
// share it.
class VLN_API vlnTranslatorSearchPath : public vlnSearchPath {
 public:
  vlnTranslatorSearchPath() = default;
  vlnTranslatorSearchPath(vlnSearchPath directories, const vlnIFindByExtension* lister)
      : vlnSearchPath(directories), lister_(lister) {}
  vlnTranslatorSearchPath(const vlnTranslatorSearchPath&) = default;
  vlnTranslatorSearchPath& operator=(const vlnTranslatorSearchPath&) = default;
  ~vlnTranslatorSearchPath() override;

  // The files with one extension, directory by directory. `directory_missing` is set to whether any directory is
  // missing; the others are still listed. Without a lister nothing is found.
  std::vector<apPathName> find_by_extension(apString extension, bool& directory_missing) const;

 private:
  const vlnIFindByExtension* lister_ = nullptr;
};
