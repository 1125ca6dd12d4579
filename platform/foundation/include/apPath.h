#pragma once

#include "apPathName.h"

// The path of a directory to list.
class apPath {
 public:
  explicit apPath(apPathName directory) : directory_(std::move(directory)) {}
  const apPathName& directory() const { return directory_; }

 private:
  apPathName directory_;
};
