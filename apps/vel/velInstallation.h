#pragma once

#include <memory>
#include <string>
#include <vector>

#include "utString.h"
#include "velAppDirMap.h"
#include "velConsole.h"
#include "velabsAppInfo.h"

// Finds the installation of the running program, from the path of its executable with links resolved, and the user's
// application data directory. That is "velbase" below the first usable one of these: QRM_HOME, the user's configuration
// directory, a private directory among the temporary files.
class velInstallation {
 public:
  // Finds all directories and creates a missing application data directory. Warns when QRM_HOME or every application
  // data directory is unusable.
  explicit velInstallation(velConsole& console);
  velInstallation(const velInstallation&) = delete;
  velInstallation& operator=(const velInstallation&) = delete;

  // False when the directory of the executable is unknown or its path too long, which is reported. Use nothing else of
  // the object then.
  bool found() const { return directories_ != nullptr; }

  velabsAppInfo& app_info() { return app_info_; }
  const std::shared_ptr<velAppDirMap>& directories() const { return directories_; }

  // The path of the user's cache file, which need not exist; empty without an application data directory.
  std::string user_cache_file() const;
  // The path of the cache file in use, the user's or the installation's; empty without a cache file.
  std::string cache_file() const;

 private:
  void find_directories(const std::string& executable_directory, velConsole& console);

  velabsAppInfo app_info_;
  std::shared_ptr<velAppDirMap> directories_;
};
