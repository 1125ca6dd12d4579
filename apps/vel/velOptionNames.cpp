#include "velOptionNames.h"

#include <algorithm>

#include "velResourceTable.h"
#include "vlnOrderedStringPairs.h"

namespace {

// The keys and names of all options of the process's resource table.
class OptionNames : public vlnOrderedStringPairs {
 public:
  OptionNames() {
    const coResourceTable& known = vel_resource_table_inquire();
    for (std::size_t i = 0; i < known.count(); ++i) {
      const utString& key = known.at(i).key();
      std::string name = key.lower_case().str();
      std::replace(name.begin(), name.end(), '_', '-');
      add_pair(key, name);
    }
  }
};

const vlnOrderedStringPairs& names() {
  static const OptionNames all;
  return all;
}

}  // namespace

utString vel_option_name(const utString& key) {
  const utString& name = names().string2(key);
  return name.empty() ? key : name;
}

utString vel_option_key(const utString& text) {
  std::string name = text.lower_case().str();
  std::replace(name.begin(), name.end(), '_', '-');
  const utString& key = names().string1(name);
  return key.empty() ? text : key;
}
