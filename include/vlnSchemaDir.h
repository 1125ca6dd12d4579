#pragma once

#include "utObserverPtr.h"
#include "utString.h"
#include "vlnExport.h"

class vlnIAppDirMap;

// One schema sub-directory as the pair of places in which it exists: the installation's, read-only and possibly several
// directories with ";" between them, and the user's, whose copy of a file wins. A snapshot; the map that made it is
// only needed to copy files. Searches give the full path, or "" when nothing is found.
class VLN_API vlnSchemaDir {
 public:
  vlnSchemaDir(const utString& installation_path, const utString& user_dir,
               utObserverPtr<const vlnIAppDirMap> app_dirs);
  vlnSchemaDir(const vlnSchemaDir& other);
  vlnSchemaDir& operator=(const vlnSchemaDir& other);

  const utString& installation_path() const { return installation_path_; }
  const utString& user_dir() const { return user_dir_; }

  // The user's place first, then the installation's.
  utString find_file(const utString& name) const;
  utString find_dir(const utString& name) const;

  utString find_user_file(const utString& name) const;
  utString find_installation_file(const utString& name) const;

  // 1 when the user's directory is there afterwards, else 0. One level is made.
  int create_user_dir() const;

  // Copies every file of the installation with that extension into the user's directory, over what is there. 0 when
  // that directory cannot be made.
  int copy_files(const utString& extension) const;

 protected:
  void become(const vlnSchemaDir& other);

 private:
  utString installation_path_;
  utString user_dir_;
  utObserverPtr<const vlnIAppDirMap> app_dirs_;
};
