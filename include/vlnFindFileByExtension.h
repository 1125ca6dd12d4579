#pragma once

#include "apIFileOperations.h"
#include "apIStringCompare.h"
#include "vlnExport.h"
#include "vlnIFindByExtension.h"

// Lists a directory of the file system, sorted by entry name, without its sub-directories. Extensions are compared with
// `compare`; if it is null nothing is found. Neither argument is owned. Null file operations mean the system's.
class VLN_API vlnFindFileByExtension : public vlnIFindByExtension {
 public:
  vlnFindFileByExtension(const apIFileOperations* files, const apIStringCompare* compare);

  void find_by_extension(apPathName directory, apString extension, std::vector<apPathName>& files,
                         bool& directory_missing) const override;

 private:
  const apIFileOperations* files_;
  const apIStringCompare* compare_;
};
