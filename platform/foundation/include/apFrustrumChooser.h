#pragma once

#include "apExport.h"
#include "apIFileOperations.h"

// Gives access to the operating system's file operations, which exist until the process ends.
class VELPLATFORM_API apFrustrumChooser {
 public:
  const apIFileOperations* file_operations() const;
};
