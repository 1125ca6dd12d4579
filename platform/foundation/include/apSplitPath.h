#pragma once

#include "apExport.h"
#include "apPathName.h"

// A path split into drive ("C:" if the text begins with a letter and a colon, else empty), directory with its last
// separator, name, and extension with its dot. The four parts joined give the text.
class VELPLATFORM_API apSplitPath {
 public:
  explicit apSplitPath(const apPathName& path);

  const apString& drive() const { return drive_; }
  const apString& directory() const { return directory_; }
  const apString& name() const { return name_; }
  const apString& extension() const { return extension_; }

 private:
  apString drive_;
  apString directory_;
  apString name_;
  apString extension_;
};
