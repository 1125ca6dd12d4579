#pragma once

#include <memory>

#include "vlnDLLLoader.h"

// The program's translator loader: it works on the directories that the installation found.
class velLoader : public vlnDLLLoader {
 public:
  explicit velLoader(std::shared_ptr<vlnIAppDirMap> directories);

  // Nothing is left to do: the driver says what loading dropped.
  void finish_loading() override {}

 protected:
  std::shared_ptr<vlnIAppDirMap> create_app_dir_map() override { return directories_; }

 private:
  std::shared_ptr<vlnIAppDirMap> directories_;
};
