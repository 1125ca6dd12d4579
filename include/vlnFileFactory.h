#pragma once

#include "vlnExport.h"
#include "vlnVlnFileFactory.h"

// A file factory that puts the platform's own encoding and file operations in the place of null ones.
class VLN_API vlnFileFactory : public vlnVlnFileFactory {
 public:
  vlnFileFactory(const apIStringEncoding* encoding, const apIFileOperations* file_operations);
  ~vlnFileFactory() override;

  // What `create` makes.
  vlnFile file(utString path) const;
};
