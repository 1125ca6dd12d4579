#pragma once

#include "apExport.h"
#include "apPathName.h"

// What the system may do to files and directories, so that a test or a host can put its own in place.
class VELPLATFORM_API apIFileOperations {
 public:
  virtual ~apIFileOperations();

  // Anything there that is not a directory counts as a file.
  virtual bool file_exists(const apPathName& path) const = 0;
  virtual bool directory_exists(const apPathName& path) const = 0;

  virtual bool delete_file(const apPathName& path) const = 0;

  // One level, mode 0700. False when it exists already or its parent does not.
  virtual bool create_directory(const apPathName& path) const = 0;

  // Absolute and without "." and ".." components; links are not followed and nothing need exist. An empty path gives an
  // empty path.
  virtual apPathName full_path(const apPathName& path) const = 0;
};
