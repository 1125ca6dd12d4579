#pragma once

#include "apFileName.h"
#include "apPathName.h"
#include "utString.h"
#include "vlnExport.h"
#include "vlnQRMDirectory.h"
#include "vlnSchemaDir.h"
#include "vlnSchemaSubDirectory.h"
#include "vlnSearchPath.h"

// Gives the directories of the installation and of the user.
class VLN_API vlnIAppDirMap {
 public:
  // Copies every file with `extension` in the directories of `from_dirs` (separated by ";") into `to_dir`. A file in an
  // earlier directory hides files of the same name in later ones. `to_dir` is created if missing (one level). A file
  // that cannot be copied is skipped. Returns 1, or 0 if `to_dir` cannot be found or created.
  virtual int copy_files(const utString& from_dirs, const utString& to_dir, const utString& extension) const = 0;

  // The first file with that name in the search path of `directory`, or an empty path.
  virtual apPathName find_file(vlnQRMDirectory directory, const apFileName& name) = 0;

  // The reference is valid as long as the map. A value outside the enumeration gives the executable's search path.
  virtual const vlnSearchPath& get_dir(vlnQRMDirectory directory) const = 0;

  virtual vlnSchemaDir get_schema_dir(vlnSchemaSubDirectory sub_directory) = 0;
  virtual ~vlnIAppDirMap();
};
