#include "velOptionsCommand.h"

#include <set>

#include "velFormatOptions.h"
#include "velJson.h"
#include "velText.h"
#include "velTranslators.h"
#include "vlnTranslatorDllsIT.h"

namespace {

std::string all_format_names(const velDriver& driver) {
  std::set<std::string> names;
  for (const vlnTranslatorDlls* set : {&driver.inputs(), &driver.outputs()}) {
    auto formats = set->formats();
    while (++formats) names.insert(formats().ut_string().str());
  }
  return names.empty() ? "none" : vel_joined({names.begin(), names.end()});
}

void print_json(const std::string& format, const velFormatOptions& options, velConsole& console) {
  velJson list = velJson::array();
  for (const auto& option : options.options()) {
    list.push_back({{"key", option.key.str()},
                    {"type", option.type},
                    {"allowed", option.allowed},
                    {"default", option.default_value},
                    {"description", option.description}});
  }
  vel_print_json(console, {{"format", format}, {"file", options.file()}, {"options", list}});
}

void print_text(const std::string& format, const velFormatOptions& options, velConsole& console) {
  if (options.options().empty()) {
    console.print(vel_printable(format) + " has no options.\n");
    return;
  }
  std::string text;
  for (const auto& option : options.options()) {
    const std::string takes = option.allowed.empty() ? option.type : option.type + ": " + vel_joined(option.allowed);
    if (!text.empty()) text += "\n";
    text += vel_wrapped(option.key.str() + " = " + option.default_value, 0) + vel_wrapped(takes, 4) +
            vel_wrapped(option.description, 4);
  }
  console.print(text);
}

}  // namespace

velExitCode vel_options(const velOptionsRequest& request, velConsole& console) {
  velInstallation installation(console);
  if (!installation.found()) return velEXIT_FAILED;
  velDriver driver(installation, console);
  driver.load();

  const vlnTranslatorInfo* info = driver.inputs().translator_for_format(request.format);
  if (!info) info = driver.outputs().translator_for_format(request.format);
  if (!info) {
    console.error(request.format + ": no translator knows this format. Formats: " + all_format_names(driver) + ".");
    return velEXIT_NO_TRANSLATOR;
  }
  const velFormatOptions options(driver, *info);
  for (const std::string& problem : options.problems()) {
    console.warning(vel_sentence(problem) + " This line was passed over.");
  }
  const std::string format = info->format_name().ut_string().str();
  request.json ? print_json(format, options, console) : print_text(format, options, console);
  return velEXIT_DONE;
}
