#include "velInstallation.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>

#include "apEnvironmentVariables.h"
#include "velFiles.h"
#include "velMessages.h"
#include "velText.h"

namespace {

// The maximum length of a directory in the directory map, including the last separator.
constexpr std::size_t longest_directory = 511;

std::string variable(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

utString user_name() {
  for (const char* name : {"LOGNAME", "USER"}) {
    if (const std::string user = variable(name); !user.empty()) return user;
  }
  return std::to_string(geteuid());
}

// The directory of the running program, with links resolved and a separator at the end. Empty, with errno set, when it
// is unknown.
std::string executable_directory() {
  char path[PATH_MAX];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
  if (length <= 0) return "";
  const vlnFile program = vel_file(std::string(path, static_cast<std::size_t>(length)));
  const std::string directory = program.get_path_element(vlnFileDirectory).str();
  return directory.ends_with('/') ? directory : directory + "/";
}

std::string config_directory() {
  if (std::string directory = variable("XDG_CONFIG_HOME"); directory.starts_with('/')) return directory;
  const std::string home = variable("HOME");
  return home.starts_with('/') ? home + "/.config" : "";
}

std::string temporary_directory() {
  const std::string directory = variable("TMPDIR");
  return (directory.starts_with('/') ? directory : "/tmp") + "/velbase-" + std::to_string(geteuid());
}

// Creates the directory if it is missing and checks that it belongs to the user, without access for others: any user
// can create a directory of this name among the temporary files.
bool is_private_directory(const std::string& path) {
  mkdir(path.c_str(), 0700);
  struct stat state = {};
  return lstat(path.c_str(), &state) == 0 && S_ISDIR(state.st_mode) && state.st_uid == geteuid() &&
         (state.st_mode & 077) == 0;
}

}  // namespace

velInstallation::velInstallation(velConsole& console) : app_info_("velbase", VEL_VERSION, "vel", user_name(), "UTF-8") {
  const std::string directory = executable_directory();
  if (directory.empty()) {
    console.error(vel_text(velMSG_PROGRAM_NOT_FOUND, {std::strerror(errno)}));
    return;
  }
  if (directory.size() > longest_directory) {
    console.error(vel_text(velMSG_PLACE_TOO_DEEP, {directory}));
    return;
  }
  find_directories(directory, console);
}

void velInstallation::find_directories(const std::string& executable_directory, velConsole& console) {
  const auto path = [this](const std::string& text) { return apPathName(app_info_.ut_encoding()->to_apString(text)); };
  const auto attempt = [&](const std::string& temporary) {
    directories_ = std::make_shared<velAppDirMap>(apEnvironmentVariables::process());
    return directories_->initialise("", executable_directory, path("velbase"), &app_info_, path(config_directory()),
                                    path(temporary)) == vlnAppMapInitOk;
  };

  // Create the directory among the temporary files only when no other one is usable.
  bool has_app_data = attempt("");
  if (!has_app_data && is_private_directory(temporary_directory())) has_app_data = attempt(temporary_directory());

  const std::string wish = variable("QRM_HOME");
  if (!has_app_data) {
    directories_->use_installation_only();
    std::vector<std::string> tried;
    for (const std::string& base : {wish, config_directory(), temporary_directory()}) {
      if (!base.empty()) tried.push_back(base);
    }
    console.warning(vel_text(velMSG_NO_APP_DATA, {vel_joined(tried)}));
    return;
  }
  if (wish.empty()) return;
  bool several = false;
  const apPathName used = directories_->get_dir(vlnDIRECTORY_APP_DATA).directory_path(several);
  if (used == path(wish).combine(path("velbase"))) return;
  const utString instead = app_info_.ut_encoding()->to_utString(used.string());
  console.warning(vel_text(velMSG_QRM_HOME_UNUSABLE, {wish, instead.view()}));
}

std::string velInstallation::user_cache_file() const {
  const utString directory = directories_->get_schema_dir(vlnSchemaTranslators).user_dir();
  return directory.empty() ? "" : directory.str() + "/translators.lst";
}

std::string velInstallation::cache_file() const {
  return directories_->get_schema_dir(vlnSchemaTranslators).find_file("translators.lst").str();
}
