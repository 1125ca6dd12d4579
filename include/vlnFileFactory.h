#pragma once

#include "vlnExport.h"
#include "vlnVlnFileFactory.h"

// A file factory that uses the platform's encoding and file operations in place of null ones.
class VLN_API vlnFileFactory : public vlnVlnFileFactory {
 public:
  vlnFileFactory(const apIStringEncoding* encoding, const apIFileOperations* file_operations);
  ~vlnFileFactory() override;

  // Returns the same file as `create`.
  vlnFile file(utString path) const;
};
