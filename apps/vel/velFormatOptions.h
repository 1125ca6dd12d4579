#pragma once

#include <string>
#include <vector>

#include "velDriver.h"
#include "velKeyValues.h"
#include "vlnTranslatorInfo.h"

// The options of one format: the keys of its resource file, with the values that each accepts and its default. When the
// user has a resource file for the format, the defaults come from there. Keys that only the installation's file has
// keep the defaults of the platform.
class velFormatOptions {
 public:
  struct Option {
    utString key;
    velKeyValues values;
    std::string default_value;
    std::string description;
  };

  velFormatOptions(velDriver& driver, const vlnTranslatorInfo& info);

  const std::vector<Option>& options() const { return options_; }
  // The file with the defaults. It need not exist.
  const std::string& file() const { return file_; }
  // The errors in that file: "FILE, line N: reason".
  const std::vector<std::string>& problems() const { return problems_; }

  // Finds an option by key or by name, ignoring case. Null when the format has no such option.
  const Option* find(const utString& name) const;

  // True when the description contains "(reading)" or "(reading;", and "(writing)" or "(writing;".
  static bool is_for_reading_only(const Option& option);
  static bool is_for_writing_only(const Option& option);

 private:
  void add_keys_of(const velResourceFile& file, const velTableInstance& table);
  void add(const utString& key, const utString& description, const velTableInstance& table);

  std::string file_;
  std::vector<Option> options_;
  std::vector<std::string> problems_;
};
