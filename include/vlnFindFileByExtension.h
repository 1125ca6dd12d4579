#pragma once

#include "apIFileOperations.h"
#include "apIStringCompare.h"
#include "vlnExport.h"
#include "vlnIFindByExtension.h"

// Lists what the file system holds, in the order of the entries' names, sub-directories not descended into. Extensions
// are compared by the given comparison; without one nothing is found. Neither argument is owned; without file
// operations the system's own serve.
class VLN_API vlnFindFileByExtension : public vlnIFindByExtension {
 public:
  vlnFindFileByExtension(const apIFileOperations* files, const apIStringCompare* compare);

  void find_by_extension(apPathName directory, apString extension, std::vector<apPathName>& files,
                         bool& directory_missing) const override;

 private:
  const apIFileOperations* files_;
  const apIStringCompare* compare_;
};
