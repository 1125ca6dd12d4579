#pragma once

#include <vector>

#include "apExport.h"
#include "apStatus.h"
#include "utString.h"

// The text of a resource file, taken apart: lines of the form `KEY = value`, blank lines, and comments behind "#" at
// the start of a line. The comment lines directly above a key are its description.
class VELPLATFORM_API velResourceFile {
 public:
  struct Entry {
    int line;
    utString key;
    utString value;
    utString description;
  };
  struct Problem {
    int line;
    utString reason;
  };

  // A file that cannot be opened sets the status and gives no entries. A line that is none of the three forms costs
  // that line and is a problem.
  static velResourceFile read(const utString& path, apStatus& status);

  const std::vector<Entry>& entries() const { return entries_; }
  const std::vector<Problem>& problems() const { return problems_; }

 private:
  std::vector<Entry> entries_;
  std::vector<Problem> problems_;
};
