#include "velOptionsCommand.h"

#include "velFiles.h"
#include "velFormatOptions.h"
#include "velJson.h"
#include "velMessages.h"
#include "velOptionNames.h"
#include "velText.h"
#include "velTranslators.h"

namespace {

std::string complaint_about_format(const std::string& format, const velDriver& driver) {
  const std::string packages = vel_packages_for_format(format);
  if (!packages.empty()) return vel_text(velMSG_WRITER_NOT_BUILT, {format, packages});
  return vel_text(velMSG_UNKNOWN_FORMAT, {format, vel_format_names({&driver.inputs(), &driver.outputs()})});
}

void print_json(const std::string& format, const velFormatOptions& options, velConsole& console) {
  velJson list = velJson::array();
  for (const auto& option : options.options()) {
    list.push_back({{"key", option.key.str()},
                    {"name", vel_option_name(option.key).str()},
                    {"type", option.values.type},
                    {"allowed", option.values.allowed},
                    {"range", vel_range_of(option.key)},
                    {"default", option.default_value},
                    {"description", option.description}});
  }
  vel_print_json(console, {{"format", format}, {"file", options.file()}, {"options", list}});
}

std::string takes(const velFormatOptions::Option& option) {
  const std::string range = vel_range_of(option.key);
  if (!range.empty()) return option.values.type + ", " + range;
  return option.values.allowed.empty() ? option.values.type
                                       : option.values.type + ": " + vel_joined(option.values.allowed);
}

void print_text(const std::string& format, const velFormatOptions& options, velConsole& console) {
  if (options.options().empty()) {
    console.print_line(vel_text(velMSG_NO_OPTIONS, {format}));
    return;
  }
  const std::string file = vel_last_component(options.file());
  std::string text;
  for (const auto& option : options.options()) {
    if (!text.empty()) text += "\n";
    text += vel_wrapped(vel_option_name(option.key).str() + " = " + option.default_value, 0) +
            vel_wrapped(takes(option), 4) + vel_wrapped(option.description, 4) +
            vel_wrapped(vel_text(velMSG_IN_RESOURCE_FILE, {file, option.key.view(), option.default_value}), 4);
  }
  console.print(text);
}

}  // namespace

velExitCode vel_options(const velOptionsRequest& request, velConsole& console) {
  velInstallation installation(console);
  if (!installation.found()) return velEXIT_FAILED;
  velDriver driver(installation, console);
  driver.load();

  const vlnTranslatorInfo* info = vel_translator_named(driver.inputs(), driver.outputs(), request.format);
  if (!info) {
    console.error(complaint_about_format(request.format, driver));
    return velEXIT_NO_TRANSLATOR;
  }
  const velFormatOptions options(driver, *info);
  for (const std::string& problem : options.problems()) {
    console.warning(vel_text(velMSG_LINE_PASSED_OVER, {vel_sentence(problem)}));
  }
  const std::string format = info->format_name().ut_string().str();
  request.json ? print_json(format, options, console) : print_text(format, options, console);
  return velEXIT_DONE;
}
