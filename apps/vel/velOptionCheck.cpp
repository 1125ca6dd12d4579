#include "velOptionCheck.h"

#include <algorithm>
#include <set>

#include "velFormatOptions.h"
#include "velMessages.h"
#include "velOptionNames.h"
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
        console.warning(vel_text(velMSG_LINE_PASSED_OVER, {vel_sentence(problem)}));
      }
    }
  }

  bool check(const char* side, utString& key, const utString& value) {
    const velFormatOptions::Option* option = nullptr;
    for (const velFormatOptions& format : formats_) {
      if ((option = format.find(key))) break;
    }
    if (!option) {
      console_.error(vel_text(velMSG_UNKNOWN_KEY, {side, key.view(), vel_joined(names_, " and "), known_names()}));
      return false;
    }
    key = option->key;
    const std::string refusal = vel_refusal(key, value);
    if (refusal.empty()) {
      warn_if_without_effect(side, key);
      return true;
    }
    console_.error(vel_text(velMSG_BAD_VALUE, {side, vel_option_name(key).view(), value.view(), refusal}));
    return false;
  }

 private:
  // Warns when every format that has the option uses it only in the other direction.
  void warn_if_without_effect(std::string_view side, const utString& key) {
    if (!seen_.insert(key).second) return;
    const bool reads = side == "--in";
    for (const velFormatOptions& format : formats_) {
      const velFormatOptions::Option* option = format.find(key);
      if (!option) continue;
      const bool is_for_other_side =
          reads ? velFormatOptions::is_for_writing_only(*option) : velFormatOptions::is_for_reading_only(*option);
      if (!is_for_other_side) return;
    }
    console_.warning(
        vel_text(reads ? velMSG_FOR_WRITING_ONLY : velMSG_FOR_READING_ONLY, {side, vel_option_name(key).view()}));
  }

  std::string known_names() const {
    std::vector<std::string> known;
    for (const velFormatOptions& format : formats_) {
      for (const auto& option : format.options()) {
        std::string name = vel_option_name(option.key).str();
        if (std::find(known.begin(), known.end(), name) == known.end()) known.push_back(std::move(name));
      }
    }
    return known.empty() ? vel_text(velMSG_NO_KEYS) : vel_text(velMSG_KNOWN_KEYS, {vel_joined(known)});
  }

  velConsole& console_;
  std::vector<std::string> names_;
  std::vector<velFormatOptions> formats_;
  std::set<utString> seen_;  // keys with a valid value, so that each is warned of once
};

}  // namespace

bool vel_check_options(velDriver& driver, const std::vector<const vlnTranslatorInfo*>& formats, const char* side,
                       vlnTranslator::Resources& options, velConsole& console) {
  Checker checker(driver, formats, console);
  bool all_good = true;
  for (auto& [key, value] : options) all_good = checker.check(side, key, value) && all_good;
  return all_good;
}
