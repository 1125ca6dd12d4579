#pragma once

#include "apPathName.h"

// A directory about to be listed.
class apPath {
 public:
  explicit apPath(apPathName directory) : directory_(std::move(directory)) {}
  const apPathName& directory() const { return directory_; }

 private:
  apPathName directory_;
};
