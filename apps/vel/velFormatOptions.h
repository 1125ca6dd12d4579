#pragma once

#include <string>
#include <vector>

#include "velDriver.h"
#include "velKeyValues.h"
#include "vlnTranslatorInfo.h"

// The options of one format: the keys of its resource file, with what each takes and the value that holds when nobody
// gives another. Where the user has a file of their own, its values are the defaults, and the keys that only the
// installation's file has keep theirs.
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
  // The file from which the defaults come; it need not exist.
  const std::string& file() const { return file_; }
  // What is wrong with that file: "FILE, line N: reason".
  const std::vector<std::string>& problems() const { return problems_; }

  // By key or by name, case aside. Null when the format has no such option.
  const Option* find(const utString& name) const;

  // True when the description says "(reading)", or "(writing)", of the option.
  static bool is_for_reading_only(const Option& option);
  static bool is_for_writing_only(const Option& option);

 private:
  void add_keys_of(const velResourceFile& file, const velTableInstance& table);
  void add(const utString& key, const utString& description, const velTableInstance& table);

  std::string file_;
  std::vector<Option> options_;
  std::vector<std::string> problems_;
};
