#include "vlnSchemaDir.h"

#include <cstdlib>
#include <memory>

#include "vlnIAppDirMap.h"
#include "vlnPathList.h"
#include "vluFileHelpers.h"

namespace {

utString taken(char* path) {
  const std::unique_ptr<char, void (*)(void*)> owned(path, std::free);
  return path ? path : "";
}

utString file_in(const utString& directories, const utString& name) {
  return taken(vlnPathList(directories.c_str()).search(name.c_str()));
}

utString dir_in(const utString& directories, const utString& name) {
  return taken(vlnPathList(directories.c_str()).search_dir(name.c_str()));
}

}  // namespace

vlnSchemaDir::vlnSchemaDir(const utString& installation_path, const utString& user_dir,
                           utObserverPtr<const vlnIAppDirMap> app_dirs)
    : installation_path_(installation_path), user_dir_(user_dir), app_dirs_(app_dirs) {}

vlnSchemaDir::vlnSchemaDir(const vlnSchemaDir& other) {
  become(other);
}

vlnSchemaDir& vlnSchemaDir::operator=(const vlnSchemaDir& other) {
  become(other);
  return *this;
}

void vlnSchemaDir::become(const vlnSchemaDir& other) {
  if (this == &other) return;
  installation_path_ = other.installation_path_;
  user_dir_ = other.user_dir_;
  app_dirs_ = other.app_dirs_;
}

utString vlnSchemaDir::find_file(const utString& name) const {
  const utString users = find_user_file(name);
  return users.empty() ? find_installation_file(name) : users;
}

utString vlnSchemaDir::find_dir(const utString& name) const {
  const utString users = dir_in(user_dir_, name);
  return users.empty() ? dir_in(installation_path_, name) : users;
}

utString vlnSchemaDir::find_user_file(const utString& name) const {
  return file_in(user_dir_, name);
}

utString vlnSchemaDir::find_installation_file(const utString& name) const {
  return file_in(installation_path_, name);
}

int vlnSchemaDir::create_user_dir() const {
  vlu_make_directory(user_dir_);
  return vlu_check_directory_exists(user_dir_) == vluFILE_IS_DIRECTORY ? 1 : 0;
}

int vlnSchemaDir::copy_files(const utString& extension) const {
  if (!create_user_dir() || !app_dirs_) return 0;
  return app_dirs_->copy_files(installation_path_, user_dir_, extension);
}
