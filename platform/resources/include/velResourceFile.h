#pragma once

#include <vector>

#include "apExport.h"
#include "apStatus.h"
#include "utString.h"

// A parsed resource file: lines of the form `KEY = value`, blank lines, and comments with "#" at the start of a line.
// The comment lines directly above a key are its description.
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

  // If the file cannot be opened, the status is set and the result is empty. A line in none of these forms is skipped
  // and recorded as a problem.
  static velResourceFile read(const utString& path, apStatus& status);

  const std::vector<Entry>& entries() const { return entries_; }
  const std::vector<Problem>& problems() const { return problems_; }

 private:
  std::vector<Entry> entries_;
  std::vector<Problem> problems_;
};
