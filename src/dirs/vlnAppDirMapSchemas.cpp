#include <array>

#include "vlnAppDirMap.h"

namespace {

constexpr std::array<const char*, vlnNUM_SCHEMA_SUB_DIRECTORIES> schema_names{
    "lintor",    "colourschemes", "export_options", "fonts", "graphics", "lights", "parasolid", "release",
    "resources", "step",          "translators",    "xrc",   "kpq",      "wx",     "navblock",  "UPI"};

}  // namespace

utString vln_schema_name(vlnSchemaSubDirectory sub_directory) {
  const auto index = static_cast<std::size_t>(sub_directory);
  return index < schema_names.size() ? schema_names[index] : "";
}

vlnSchemaDir vlnAppDirMap::get_schema_dir(vlnSchemaSubDirectory sub_directory) {
  const utString name = vln_schema_name(sub_directory);
  bool not_single = false;
  const apPathName app_data = app_data_.directory_path(not_single);
  utString user_dir = "";
  if (!app_data.invalid()) {
    user_dir = encoding()->to_utString(app_data.combine(apPathName(encoding()->to_apString(name))).string());
  }
  return {schema_dirs_.read(name), user_dir, this};
}

void vlnAppDirMap::initialise_schema_dirs() {
  for (const char* name : schema_names) create_schema_dir(name);
}

void vlnAppDirMap::create_schema_dir(const utString& name) {
  schema_dirs_.put(name, app_info_->schema_path(name));
}

int vlnAppDirMap::setup_schemas() {
  if (!schemas_.invalid()) {
    const utString path = schemas_.ut_path_string(encoding());
    app_info_->schema_dir(path);
    app_info_->installation_dir(path);
  }
  initialise_schema_dirs();
  if (!schemas_.invalid() && !app_data_.invalid()) {
    installation_schemas_ = schemas_;
    app_info_->user_dir(app_data_.ut_path_string(encoding()));
    schemas_ = app_data_.append(schemas_);
    app_info_->schema_dir(schemas_.ut_path_string(encoding()));
  }
  if (!executable_.invalid()) app_info_->fabrin_server_dir(executable_.ut_path_string(encoding()));
  return 1;
}

int vlnAppDirMap::add_schema_dir(const utString& directories) {
  if (!initialised_ || !app_info_ || schemas_.invalid()) return 0;
  schemas_ = vlnSearchPath(encoding()->to_apString(directories), encoding()).append(installation_schemas_);
  setup_schemas();
  return 1;
}
