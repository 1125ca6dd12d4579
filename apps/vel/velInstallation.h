#pragma once

#include <memory>
#include <string>
#include <vector>

#include "utString.h"
#include "velAppDirMap.h"
#include "velConsole.h"
#include "velabsAppInfo.h"

// The installation to which the running program belongs, told by where its executable really lies, and the user's
// application data directory: "velbase" below QRM_HOME, the user's configuration directory, or a private directory
// among the temporary files, whichever is the first that can be used.
class velInstallation {
 public:
  // Finds everything, makes the application data directory if there is none, and warns where a wish could not be met.
  explicit velInstallation(velConsole& console);
  velInstallation(const velInstallation&) = delete;
  velInstallation& operator=(const velInstallation&) = delete;

  // False, and an error was said, when the program could not find itself; nothing else is of use then.
  bool found() const { return directories_ != nullptr; }

  velabsAppInfo& app_info() { return app_info_; }
  const std::shared_ptr<velAppDirMap>& directories() const { return directories_; }

  // The user's cache file, which need not exist; empty without an application data directory.
  std::string user_cache_file() const;
  // The cache file that is in force; empty when there is none.
  std::string cache_file() const;

 private:
  void find_directories(const std::string& executable_directory, velConsole& console);

  velabsAppInfo app_info_;
  std::shared_ptr<velAppDirMap> directories_;
};
