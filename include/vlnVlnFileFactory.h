#pragma once

#include "apIFileOperations.h"
#include "apIStringEncoding.h"
#include "utString.h"
#include "vlnExport.h"
#include "vlnFile.h"

// The name by which other components find the file factory: "vlnFile_factory".
VLN_API extern const utString vlnVLNFILEFACTORY;

// Creates files that share an encoding and file operations; neither is owned.
class VLN_API vlnVlnFileFactory {
 public:
  virtual vlnFile create(const utString& path) const;
  virtual ~vlnVlnFileFactory();

  vlnVlnFileFactory(const apIStringEncoding* encoding, const apIFileOperations* file_operations)
      : encoding_(encoding), file_operations_(file_operations) {}

 private:
  const apIStringEncoding* encoding_;
  const apIFileOperations* file_operations_;
};
