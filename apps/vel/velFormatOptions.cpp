#include "velFormatOptions.h"

#include "velOptionNames.h"
#include "vlnResourceType.h"

namespace {

bool has(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

}  // namespace

velFormatOptions::velFormatOptions(velDriver& driver, const vlnTranslatorInfo& info)
    : file_(driver.resource_path(&info).str()) {
  const velResources& resources = driver.resources(file_);
  problems_ = resources.problems;
  add_keys_of(resources.file, resources.values);

  const utString name = driver.app_info()->ut_encoding()->to_utString(info.resource_file_name().string());
  const utString installed = driver.app_dirs()->get_schema_dir(vlnSchemaResources).find_installation_file(name);
  if (!installed.empty() && installed != file_) add_keys_of(driver.resources(installed).file, resources.values);
}

void velFormatOptions::add_keys_of(const velResourceFile& file, const velTableInstance& table) {
  for (const auto& entry : file.entries()) add(entry.key, entry.description, table);
}

void velFormatOptions::add(const utString& key, const utString& description, const velTableInstance& table) {
  const vlnResourceType* type = vlnResourceType::look_up_type(key);
  const coResourceBase* resource = table.find(key);
  if (!type || !resource) return;
  for (Option& known : options_) {
    if (!known.key.case_compare(key)) continue;
    if (known.description.empty()) known.description = description.str();
    return;
  }
  options_.push_back({key, vel_values_of(key), vel_shown_value(key, type->as_string(resource)), description.str()});
}

const velFormatOptions::Option* velFormatOptions::find(const utString& name) const {
  const utString key = vel_option_key(name);
  for (const Option& option : options_) {
    if (option.key.case_compare(key)) return &option;
  }
  return nullptr;
}

bool velFormatOptions::is_for_reading_only(const Option& option) {
  return has(option.description, "(reading)") || has(option.description, "(reading;");
}

bool velFormatOptions::is_for_writing_only(const Option& option) {
  return has(option.description, "(writing)") || has(option.description, "(writing;");
}
