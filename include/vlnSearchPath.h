#pragma once

#include <vector>

#include "apFileName.h"
#include "apIStringEncoding.h"
#include "apPathName.h"
#include "apString.h"
#include "itIterator.h"
#include "utString.h"
#include "vlnExport.h"

// An ordered list of directories: duplicates and empty entries are kept as they come, nothing is normalised. It also
// knows whether it was set at all. A value.
class VLN_API vlnSearchPath {
 public:
  // Not set: `invalid`, without directories.
  vlnSearchPath() = default;
  vlnSearchPath(apPathName directory);
  // Directories with ";" between them. "a;;b" has three entries, "a;b;" two, "" none; each of them is set. The encoding
  // is that of the directories on disk; null is the default one.
  explicit vlnSearchPath(apString path, const apIStringEncoding* encoding = nullptr);
  vlnSearchPath(const vlnSearchPath&) = default;
  vlnSearchPath& operator=(const vlnSearchPath&) = default;
  virtual ~vlnSearchPath();

  // The first file or directory that is listed under `name`, its full path in the spelling on disk; an empty path when
  // there is none. The first directory that lists it wins; within a directory an exactly equal entry comes before one
  // that is equal but for case. A name with a separator in it is never found.
  virtual apPathName search(apFileName name) const;

  // This one's directories, then those of `other`; set only when both are.
  vlnSearchPath append(const vlnSearchPath& other) const;

  // True if both list the same directories, character by character, in the same order. Whether they are set is ignored.
  bool compare(const vlnSearchPath& other) const;

  // The one directory, and `not_single` false; an empty path, and `not_single` true, when there are none or several.
  apPathName directory_path(bool& not_single) const;

  itIterator<apPathName> directory_paths() const { return itIterator<apPathName>(directories_); }
  bool empty() const { return directories_.empty(); }
  bool invalid() const { return !valid_; }

  // Replaces "<exe_dir>" (case matters) at the start of every entry by the directory; leading "/" of the rest are
  // removed.
  vlnSearchPath exe_substitute(const apPathName& exe_dir) const;

  // Every occurrence of `from` in every entry replaced. An empty `from` changes nothing.
  vlnSearchPath substitute(const apString& from, const apString& to) const;

  // The directories with ";" between them.
  apString path_string() const;
  // Null when the encoding is.
  utString ut_path_string(const apIStringEncoding* encoding) const;

 private:
  std::vector<apPathName> directories_;
  bool valid_ = false;
};
