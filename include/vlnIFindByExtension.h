#pragma once

#include <vector>

#include "apPathName.h"
#include "apString.h"
#include "vlnExport.h"

// Lists the files of one extension in one directory.
class VLN_API vlnIFindByExtension {
 public:
  // Appends to `files` every entry of `directory` with `extension` (without its dot). `directory_missing` is always
  // set.
  virtual void find_by_extension(apPathName directory, apString extension, std::vector<apPathName>& files,
                                 bool& directory_missing) const = 0;
  virtual ~vlnIFindByExtension();
};
