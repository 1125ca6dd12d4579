#pragma once

#include "apIFileOperations.h"
#include "apIStringEncoding.h"
#include "utString.h"
#include "vlnExport.h"
#include "vlnFileCreateMode.h"
#include "vlnFilePathElement.h"
#include "vlnFileType.h"

// One file by its absolute path, the parts of that path and what stood there when it was looked at last. Nothing need
// exist. Two files are equal when directory, name and extension are, case aside. The encoding and the file operations
// are not owned; without either the path is empty.
class VLN_API vlnFile {
 public:
  vlnFile(const utString& path, const apIStringEncoding* encoding, const apIFileOperations* file_operations);

  const utString& full_path() const { return full_path_; }

  // "" for a value that is none of the enumeration.
  const utString& get_path_element(vlnFilePathElement element) const;
  void get_path_elements(const utString& path, utString& directory, utString& name, utString& extension) const;

  vlnFileType file_type() const { return type_; }
  static vlnFileType file_type(const utString& path);

  // 1 when a file is there afterwards, else 0. A value other than vlnFileCreateTruncate keeps what a file holds.
  int create_file(vlnFileCreateMode mode) const;

  // A copy with every "/" turned into a backslash: for showing, never for the file system.
  static utString backslashify(const utString& text);

  friend bool operator==(const vlnFile& left, const vlnFile& right) { return left.are_equal(right); }

 protected:
  utString full_path(const utString& path) const;
  bool are_equal(const vlnFile& other) const;

 private:
  utString full_path_;
  utString directory_;
  utString name_;
  utString extension_;
  mutable vlnFileType type_ = vlnFileTypeNone;
  const apIStringEncoding* encoding_;
  const apIFileOperations* file_operations_;
};
