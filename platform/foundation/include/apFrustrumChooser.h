#pragma once

#include "apExport.h"
#include "apIFileOperations.h"

// Hands out the operating system's own file operations, which live as long as the process.
class VELPLATFORM_API apFrustrumChooser {
 public:
  const apIFileOperations* file_operations() const;
};
