#pragma once

#include "apIProcessEnvironmentOperations.h"
#include "coTable.h"
#include "utObserverPtr.h"
#include "utString.h"
#include "velabsAppInfo.h"
#include "vlnAppMapInit.h"
#include "vlnExport.h"
#include "vlnIAppDirMap.h"

// The directory map of an installation, computed from the executable's directory. The executable is two levels below
// the root, in a directory under "sys". The user's application data directory is found or created. The installation's
// directories are neither checked nor created. Everything is unset until `initialise`. The environment and the
// application information are not owned.
//
// Paths are converted to the application's encoding on disk, so `utString` and foundation strings name the same file.
class VLN_API vlnAppDirMap : public vlnIAppDirMap {
 public:
  explicit vlnAppDirMap(utObserverPtr<apIProcessEnvironmentOperations> environment);
  ~vlnAppDirMap() override;

  int copy_files(const utString& from_dirs, const utString& to_dir, const utString& extension) const override;
  apPathName find_file(vlnQRMDirectory directory, const apFileName& name) override;
  const vlnSearchPath& get_dir(vlnQRMDirectory directory) const override;
  vlnSchemaDir get_schema_dir(vlnSchemaSubDirectory sub_directory) override;

  // `drive` and `directory` give the executable's directory; the directory may end in a separator. The application data
  // directory is `startup_subpath` below the first usable base: the variable QRM_HOME, `config_path` (created if
  // missing), `temp_path`. Returns vlnAppMapInitNoAppDataDir if no base is usable: the installation's directories are
  // then set, the schemas are not. Returns the same value, with nothing set, if `app_info` is null. Throws
  // std::out_of_range for a directory of 512 characters or more.
  virtual vlnAppMapInit initialise(const utString& drive, const utString& directory, const apPathName& startup_subpath,
                                   velabsAppInfo* app_info, const apPathName& config_path, const apPathName& temp_path);

  // Adds schema directories (separated by ";") after the application data directory and before those of earlier calls
  // and of the installation. Returns 1, or 0 with nothing changed if `initialise` has not succeeded.
  int add_schema_dir(const utString& directories);

 protected:
  void InitialiseSysDir(const utString& drive, const utString& directory);
  bool initialise_app_data_dir();

  // Appends the start-up sub-path to `path` and creates that one level. Returns false if the result is not a directory.
  bool create_startup_path(apPathName& path);

  // Each tries one base and stores the application data directory in `path`.
  bool search_qrm_home_path(apPathName& path);
  bool search_config_path(apPathName& path);
  bool search_system_temp_path(apPathName& path);

  // The file name of a path, with "." and the extension if it has one: "x" for "d/x.", ".txt" for "d/.txt".
  utString extract_file(const utString& path) const;

  // Sets `search_path` from a variable that lists directories separated by ";", with "<exe_dir>" replaced. Does nothing
  // if the variable is empty or not set.
  void path_from_env_var(const apString& name, vlnSearchPath& search_path, const apPathName& exe_dir) const;

  // For derived maps. Does nothing in this class.
  void add_env_options(const apPathName& path);

  int setup_schemas();
  void initialise_schema_dirs();
  void create_schema_dir(const utString& name);

 private:
  // The application's encoding; the default one before `initialise`.
  const apIStringEncoding* encoding() const;
  apPathName in_own_encoding(const apString& path) const;
  // The value of a variable, decoded with the application's encoding.
  apString environment_text(const apString& name) const;

  vlnSearchPath system_;
  vlnSearchPath library_;
  vlnSearchPath locale_;
  vlnSearchPath executable_path_;
  vlnSearchPath schemas_;
  vlnSearchPath installation_schemas_;
  vlnSearchPath help_;
  vlnSearchPath examples_;
  vlnSearchPath app_data_;
  vlnSearchPath misc_;
  vlnSearchPath services_;
  vlnSearchPath executable_;
  coTable<utString, utString> schema_dirs_{4, 50};
  velabsAppInfo* app_info_ = nullptr;
  apPathName startup_subpath_;
  apPathName temp_path_;
  apPathName config_path_;
  utObserverPtr<apIProcessEnvironmentOperations> environment_;
  bool initialised_ = false;
};
