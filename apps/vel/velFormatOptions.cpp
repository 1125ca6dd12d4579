#include "velFormatOptions.h"

#include <algorithm>
#include <cstdlib>

#include "velMessages.h"
#include "velOptionNames.h"
#include "velResourceFile.h"
#include "velText.h"
#include "velValidator.h"
#include "vlnResourceHandler.h"
#include "vlnResourceTypes.h"

namespace {

std::string name_of(const vlnResourceType& type) {
  if (dynamic_cast<const vlnResourceType_utBool*>(&type)) return "true/false";
  if (dynamic_cast<const vlnFiniteResourceType*>(&type)) return "one of";
  if (dynamic_cast<const vlnResourceType_int*>(&type)) return "whole";
  if (dynamic_cast<const vlnResourceType_double*>(&type)) return "real";
  return "text";
}

bool has(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

// The line of a problem "FILE, line N: reason"; 0 for one of the file as a whole.
long line_of(const std::string& problem, const std::string& file) {
  const std::string start = file + ", line ";
  return problem.starts_with(start) ? std::strtol(problem.c_str() + start.size(), nullptr, 10) : 0;
}

}  // namespace

velFormatOptions::velFormatOptions(velDriver& driver, const vlnTranslatorInfo& info)
    : file_(driver.resource_path(&info).str()) {
  velTableInstance table;
  table.initialise(file_);
  for (const utString& problem : table.problems()) problems_.push_back(problem.str());
  std::stable_sort(problems_.begin(), problems_.end(), [this](const std::string& a, const std::string& b) {
    return line_of(a, file_) < line_of(b, file_);
  });
  add_keys_of(file_, table);

  const utString name = driver.app_info()->ut_encoding()->to_utString(info.resource_file_name().string());
  const utString installed = driver.app_dirs()->get_schema_dir(vlnSchemaResources).find_installation_file(name);
  if (!installed.empty()) add_keys_of(installed, table);
}

void velFormatOptions::add_keys_of(const utString& path, const velTableInstance& table) {
  apStatus missing;
  const velResourceFile file = velResourceFile::read(path, missing);
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
  utStringcoDList texts;
  type->valid_strings(texts);
  std::vector<std::string> allowed;
  for (const utString& text : texts) allowed.push_back(text.str());
  if (dynamic_cast<const vlnResourceType_utBool*>(type)) allowed.insert(allowed.end(), {"0", "1"});
  options_.push_back({key, name_of(*type), std::move(allowed), type->as_string(resource).str(), description.str()});
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

std::string velFormatOptions::refusal(const Option& option, const utString& value) {
  velValidator validator;
  const vlnResourceHandler handler(&validator, option.key);
  velTableInstance table;
  if (handler.validate(value) && table.add_resource(option.key, value)) return "";
  if (const auto* bounds = velValidator::bounds(option.key)) return vel_text(bounds->text);
  if (option.type == "whole") return vel_text(velMSG_TAKES_WHOLE);
  if (option.type == "real") return vel_text(velMSG_TAKES_REAL);
  if (option.type == "text") return vel_text(velMSG_TAKES_OTHER_TEXT);
  return vel_text(velMSG_TAKES_ONE_OF, {vel_joined(option.allowed)});
}
