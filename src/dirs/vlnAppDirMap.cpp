#include "vlnAppDirMap.h"

#include <stdexcept>
#include <string>

#include "apFrustrumChooser.h"
#include "apSplitPath.h"
#include "apStringEncodingChooser.h"
#include "vlnPathList.h"
#include "vluFileHelpers.h"

namespace {

bool is_separator(char c) {
  return c == '/' || c == '\\';
}

// `directory` without its last component, or unchanged if it has no separator after its first character.
std::string without_last_component(const std::string& directory) {
  for (std::size_t i = directory.size(); i-- > 1;) {
    if (is_separator(directory[i])) return directory.substr(0, i);
  }
  return directory;
}

const apIFileOperations& files() {
  return *apFrustrumChooser().file_operations();
}

}  // namespace

vlnIAppDirMap::~vlnIAppDirMap() = default;

vlnAppDirMap::vlnAppDirMap(utObserverPtr<apIProcessEnvironmentOperations> environment) : environment_(environment) {}

vlnAppDirMap::~vlnAppDirMap() = default;

vlnAppMapInit vlnAppDirMap::initialise(const utString& drive, const utString& directory,
                                       const apPathName& startup_subpath, velabsAppInfo* app_info,
                                       const apPathName& config_path, const apPathName& temp_path) {
  if (!app_info) return vlnAppMapInitNoAppDataDir;
  app_info_ = app_info;
  config_path_ = in_own_encoding(config_path.string());
  temp_path_ = in_own_encoding(temp_path.string());
  startup_subpath_ = startup_subpath;
  executable_path_ = vlnSearchPath(encoding()->to_apString(drive + directory), encoding());
  InitialiseSysDir(drive, directory);
  if (!initialise_app_data_dir()) return vlnAppMapInitNoAppDataDir;
  setup_schemas();
  initialised_ = true;
  return vlnAppMapInitOk;
}

void vlnAppDirMap::InitialiseSysDir(const utString& drive, const utString& directory) {
  constexpr std::size_t longest_directory = 511;
  if (directory.length() > longest_directory) throw std::out_of_range("the executable's directory is too long");

  std::string root_text = directory.str();
  if (!root_text.empty() && is_separator(root_text.back())) root_text.pop_back();
  root_text = without_last_component(without_last_component(root_text));

  const apPathName root = in_own_encoding(encoding()->to_apString(drive + utString(root_text)));
  bool not_single = false;
  const apPathName executable = executable_path_.directory_path(not_single);
  const auto below = [](const apPathName& base, const wchar_t* path) {
    return vlnSearchPath(base.combine(apPathName(path)));
  };
  const apPathName system = apPathName::adjoin(root, apFileName(L"sys"));
  system_ = vlnSearchPath(system);
  locale_ = below(root, L"lib/locale");
  help_ = below(root, L"file/help");
  examples_ = below(root, L"file/examples");
  misc_ = below(system, L"misc");
  schemas_ = below(system, L"schemas");
  library_ = below(executable, L"lib");
  services_ = below(executable, L"services");
  executable_ = vlnSearchPath(executable);
}

bool vlnAppDirMap::initialise_app_data_dir() {
  apPathName path;
  if (!search_qrm_home_path(path) && !search_config_path(path) && !search_system_temp_path(path)) return false;
  app_data_ = vlnSearchPath(path);
  return true;
}

bool vlnAppDirMap::search_qrm_home_path(apPathName& path) {
  path = in_own_encoding(environment_text(L"QRM_HOME"));
  return create_startup_path(path);
}

bool vlnAppDirMap::search_config_path(apPathName& path) {
  if (!config_path_.invalid() && !files().directory_exists(config_path_)) files().create_directory(config_path_);
  path = config_path_;
  return create_startup_path(path);
}

bool vlnAppDirMap::search_system_temp_path(apPathName& path) {
  path = temp_path_;
  return create_startup_path(path);
}

bool vlnAppDirMap::create_startup_path(apPathName& path) {
  if (path.invalid()) return false;
  path = path.combine(startup_subpath_);
  if (!files().directory_exists(path)) files().create_directory(path);
  return files().directory_exists(path);
}

const vlnSearchPath& vlnAppDirMap::get_dir(vlnQRMDirectory directory) const {
  switch (directory) {
    case vlnDIRECTORY_SYSTEM:
      return system_;
    case vlnDIRECTORY_LIBRARY:
      return library_;
    case vlnDIRECTORY_SERVICES:
      return services_;
    case vlnDIRECTORY_LOCALE:
      return locale_;
    case vlnDIRECTORY_SCHEMAS:
      return schemas_;
    case vlnDIRECTORY_HELP:
      return help_;
    case vlnDIRECTORY_EXAMPLES:
      return examples_;
    case vlnDIRECTORY_APP_DATA:
      return app_data_;
    case vlnDIRECTORY_MISC:
      return misc_;
    case vlnDIRECTORY_EXECUTABLE:
      return executable_;
    default:
      return executable_path_;
  }
}

apPathName vlnAppDirMap::find_file(vlnQRMDirectory directory, const apFileName& name) {
  return get_dir(directory).search(name);
}

int vlnAppDirMap::copy_files(const utString& from_dirs, const utString& to_dir, const utString& extension) const {
  const vluFileError made = vlu_make_directory(to_dir);
  if (made != vluFILE_MADE && made != vluFILE_IS_DIRECTORY) return 0;
  utStringcoDynArr found;
  vlnPathList(from_dirs.c_str()).search_by_extension(found, extension.c_str());
  for (const utString& file : found) vlu_copy_file(file, to_dir + "/" + extract_file(file));
  return 1;
}

utString vlnAppDirMap::extract_file(const utString& path) const {
  // Any bytes may be a name, also bytes that are invalid in the application's encoding.
  const apIStringEncoding* bytes = apStringEncodingChooser().ut_encoding();
  const apSplitPath parts{apPathName(bytes->to_apString(path))};
  // A lone dot at the end is removed; a name that is only an extension is kept.
  const bool extension = parts.extension().length() > 1;
  return bytes->to_utString(extension ? parts.name() + parts.extension() : parts.name());
}

void vlnAppDirMap::path_from_env_var(const apString& name, vlnSearchPath& search_path,
                                     const apPathName& exe_dir) const {
  const apString value = environment_text(name);
  if (!value.empty()) search_path = vlnSearchPath(value, encoding()).exe_substitute(in_own_encoding(exe_dir.string()));
}

const apIStringEncoding* vlnAppDirMap::encoding() const {
  return app_info_ ? app_info_->ut_encoding() : apStringEncodingChooser().ut_encoding();
}

apPathName vlnAppDirMap::in_own_encoding(const apString& path) const {
  return apPathName(path, encoding());
}

apString vlnAppDirMap::environment_text(const apString& name) const {
  const apString value = environment_ ? environment_->get(name) : apString();
  apStatus status;
  encoding()->to_utString(value, status);
  if (status.ok()) return value;
  // The environment decodes bytes as UTF-8; these are bytes of another encoding.
  return encoding()->to_apString(apStringEncodingChooser().ut_encoding()->to_utString(value));
}

void vlnAppDirMap::add_env_options(const apPathName& path) {
  static_cast<void>(path);
}
