#include "velOptionCheck.h"

#include <algorithm>

#include "velFormatOptions.h"
#include "velText.h"

namespace {

class Checker {
 public:
  Checker(velDriver& driver, const std::vector<const vlnTranslatorInfo*>& formats, velConsole& console)
      : console_(console) {
    for (const vlnTranslatorInfo* format : formats) {
      std::string name = format->format_name().ut_string().str();
      if (std::find(names_.begin(), names_.end(), name) != names_.end()) continue;
      names_.push_back(std::move(name));
      formats_.emplace_back(driver, *format);
      for (const std::string& problem : formats_.back().problems()) {
        console.warning(vel_sentence(problem) + " This line was passed over.");
      }
    }
  }

  bool check(const char* side, utString& key, const utString& value) const {
    const velFormatOptions::Option* option = nullptr;
    for (const velFormatOptions& format : formats_) {
      if ((option = format.find(key))) break;
    }
    if (!option) {
      console_.error(std::string(side) + " " + key.str() + ": " + vel_joined(names_, " and ") +
                     " has no such option. " + known_keys());
      return false;
    }
    key = option->key;
    const std::string refusal = velFormatOptions::refusal(*option, value);
    if (refusal.empty()) return true;
    console_.error(std::string(side) + " " + key.str() + ": the value \"" + value.str() + "\" is not valid; " +
                   vel_sentence(refusal));
    return false;
  }

 private:
  std::string known_keys() const {
    std::vector<std::string> keys;
    for (const velFormatOptions& format : formats_) {
      for (const auto& option : format.options()) {
        if (std::find(keys.begin(), keys.end(), option.key.str()) == keys.end()) keys.push_back(option.key.str());
      }
    }
    return keys.empty() ? "It has none." : "Known are " + vel_joined(keys) + ".";
  }

  velConsole& console_;
  std::vector<std::string> names_;
  std::vector<velFormatOptions> formats_;
};

}  // namespace

bool vel_check_options(velDriver& driver, const std::vector<const vlnTranslatorInfo*>& formats, const char* side,
                       vlnTranslator::Resources& options, velConsole& console) {
  const Checker checker(driver, formats, console);
  bool all_good = true;
  for (auto& [key, value] : options) all_good = checker.check(side, key, value) && all_good;
  return all_good;
}
