#include "velDirsCommand.h"

#include <utility>

#include "velInstallation.h"
#include "velJson.h"
#include "velText.h"

namespace {

struct NamedDirectory {
  vlnQRMDirectory directory;
  const char* name;
};

constexpr NamedDirectory named_directories[] = {
    {vlnDIRECTORY_SYSTEM, "system"},
    {vlnDIRECTORY_LIBRARY, "library"},
    {vlnDIRECTORY_SERVICES, "services"},
    {vlnDIRECTORY_LOCALE, "locale"},
    {vlnDIRECTORY_SCHEMAS, "schemas"},
    {vlnDIRECTORY_HELP, "help"},
    {vlnDIRECTORY_EXECUTABLE_PATH, "executable path"},
    {vlnDIRECTORY_EXAMPLES, "examples"},
    {vlnDIRECTORY_APP_DATA, "application data"},
    {vlnDIRECTORY_MISC, "misc"},
    {vlnDIRECTORY_EXECUTABLE, "executable"},
};

velJson or_null(const std::string& text) {
  return text.empty() ? velJson(nullptr) : velJson(text);
}

std::string or_none(const std::string& text) {
  return text.empty() ? "none" : text;
}

}  // namespace

velExitCode vel_dirs(const velDirsRequest& request, velConsole& console) {
  velInstallation installation(console);
  if (!installation.found()) return velEXIT_FAILED;
  velAppDirMap& map = *installation.directories();

  velJson directories = velJson::object();
  std::vector<std::vector<std::string>> lines{{"DIRECTORY", "WHERE"}};
  for (const auto& [directory, name] : named_directories) {
    const std::string path = map.get_dir(directory).ut_path_string(installation.app_info().ut_encoding()).str();
    directories[name] = or_null(path);
    lines.push_back({name, or_none(path)});
  }

  velJson schemas = velJson::object();
  std::vector<std::vector<std::string>> schema_lines{{"SCHEMA", "USER", "INSTALLATION"}};
  for (int number = 0; number < vlnNUM_SCHEMA_SUB_DIRECTORIES; ++number) {
    const auto sub_directory = static_cast<vlnSchemaSubDirectory>(number);
    const vlnSchemaDir schema = map.get_schema_dir(sub_directory);
    const std::string name = vln_schema_name(sub_directory).str();
    schemas[name] = {{"user", or_null(schema.user_dir().str())},
                     {"installation", or_null(schema.installation_path().str())}};
    schema_lines.push_back({name, or_none(schema.user_dir().str()), or_none(schema.installation_path().str())});
  }

  if (request.json) {
    vel_print_json(console, {{"directories", directories}, {"schemas", schemas}});
  } else {
    console.print(vel_columns(lines) + "\n" + vel_columns(schema_lines));
  }
  return velEXIT_DONE;
}
