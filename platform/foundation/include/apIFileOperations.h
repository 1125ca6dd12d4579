#pragma once

#include "apExport.h"
#include "apPathName.h"

// Operations on files and directories, as an interface that a test or a host can implement.
class VELPLATFORM_API apIFileOperations {
 public:
  virtual ~apIFileOperations();

  // Every existing entry that is not a directory counts as a file.
  virtual bool file_exists(const apPathName& path) const = 0;
  virtual bool directory_exists(const apPathName& path) const = 0;

  virtual bool delete_file(const apPathName& path) const = 0;

  // Creates one level with mode 0700. False if the directory already exists or its parent does not.
  virtual bool create_directory(const apPathName& path) const = 0;

  // Absolute and without "." and ".." components. Links are not followed and the path need not exist. An empty path
  // gives an empty path.
  virtual apPathName full_path(const apPathName& path) const = 0;
};
