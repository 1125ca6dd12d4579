#pragma once

#include <memory>

#include "vlnDLLLoader.h"

// The program's translator loader, which uses the directories of the installation.
class velLoader : public vlnDLLLoader {
 public:
  explicit velLoader(std::shared_ptr<vlnIAppDirMap> directories);

  // Nothing to do: the driver reports the libraries that failed.
  void finish_loading() override {}

 protected:
  std::shared_ptr<vlnIAppDirMap> create_app_dir_map() override { return directories_; }

 private:
  std::shared_ptr<vlnIAppDirMap> directories_;
};
