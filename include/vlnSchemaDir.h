#pragma once

#include "utObserverPtr.h"
#include "utString.h"
#include "vlnExport.h"

class vlnIAppDirMap;

// One schema sub-directory in two locations. The installation's is read-only and may be several directories separated
// by ";". The user's has priority for files of the same name. A snapshot; the map that created it is only needed to
// copy files. Searches return the full path, or "" if nothing is found.
class VLN_API vlnSchemaDir {
 public:
  vlnSchemaDir(const utString& installation_path, const utString& user_dir,
               utObserverPtr<const vlnIAppDirMap> app_dirs);
  vlnSchemaDir(const vlnSchemaDir& other);
  vlnSchemaDir& operator=(const vlnSchemaDir& other);

  const utString& installation_path() const { return installation_path_; }
  const utString& user_dir() const { return user_dir_; }

  // Searches the user's location first, then the installation's.
  utString find_file(const utString& name) const;
  utString find_dir(const utString& name) const;

  utString find_user_file(const utString& name) const;
  utString find_installation_file(const utString& name) const;

  // Creates the user's directory (one level). Returns 1 if it exists afterwards, else 0.
  int create_user_dir() const;

  // Copies every file of the installation with that extension into the user's directory and overwrites existing files.
  // Returns 0 if that directory cannot be created.
  int copy_files(const utString& extension) const;

 protected:
  void become(const vlnSchemaDir& other);

 private:
  utString installation_path_;
  utString user_dir_;
  utObserverPtr<const vlnIAppDirMap> app_dirs_;
};
