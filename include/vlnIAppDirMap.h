#pragma once

#include "apFileName.h"
#include "apPathName.h"
#include "utString.h"
#include "vlnExport.h"
#include "vlnQRMDirectory.h"
#include "vlnSchemaDir.h"
#include "vlnSchemaSubDirectory.h"
#include "vlnSearchPath.h"

// Where everything is: the directories of the installation and of the user.
class VLN_API vlnIAppDirMap {
 public:
  // Copies every file with `extension` in the directories of `from_dirs` (";" between them; an earlier directory hides
  // files of the same name in later ones) into `to_dir`, which is made if it is missing (one level). A file that cannot
  // be copied is skipped. 1, or 0 when `to_dir` can be neither found nor made.
  virtual int copy_files(const utString& from_dirs, const utString& to_dir, const utString& extension) const = 0;

  // The first file of that name in a directory's search path; an empty path when there is none.
  virtual apPathName find_file(vlnQRMDirectory directory, const apFileName& name) = 0;

  // Valid as long as the map. A value that is none of the enumeration gives the executable's search path.
  virtual const vlnSearchPath& get_dir(vlnQRMDirectory directory) const = 0;

  virtual vlnSchemaDir get_schema_dir(vlnSchemaSubDirectory sub_directory) = 0;
  virtual ~vlnIAppDirMap();
};
