#pragma once

#include "apIFileOperations.h"
#include "apIStringEncoding.h"
#include "utString.h"
#include "vlnExport.h"
#include "vlnFileCreateMode.h"
#include "vlnFilePathElement.h"
#include "vlnFileType.h"

// A file name as an absolute path, with the parts of that path and the file's type at the last check. The file need not
// exist. Two files are equal if directory, name and extension are equal, ignoring case. The encoding and the file
// operations are not owned; if either is null the path is empty.
class VLN_API vlnFile {
 public:
  vlnFile(const utString& path, const apIStringEncoding* encoding, const apIFileOperations* file_operations);

  const utString& full_path() const { return full_path_; }

  // Returns "" for a value outside the enumeration.
  const utString& get_path_element(vlnFilePathElement element) const;
  void get_path_elements(const utString& path, utString& directory, utString& name, utString& extension) const;

  vlnFileType file_type() const { return type_; }
  static vlnFileType file_type(const utString& path);

  // Creates the file if it is missing. Returns 1 if the file exists afterwards, else 0. Only vlnFileCreateTruncate
  // removes the content of an existing file.
  int create_file(vlnFileCreateMode mode) const;

  // A copy with every "/" replaced by a backslash. For display only, not for the file system.
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
