#pragma once

#include <algorithm>
#include <cstdlib>

#include "TemporaryDirectory.h"

// While it lives, the user's locale has a decimal comma. Include it in one source of a program.
//
// It is a copy of the C library's own UTF-8 locale, so that no other one need be installed. A locale directory holds
// one file for each category; in that of numbers the texts follow a header of 32 bytes.
class CommaLocale {
 public:
  CommaLocale() {
    const std::filesystem::path copy = directory_.path() / "xx.utf8";
    std::error_code error;
    std::filesystem::copy("/usr/lib/locale/C.utf8", copy, std::filesystem::copy_options::recursive, error);
    std::string numbers = TemporaryDirectory::read(copy / "LC_NUMERIC");
    made_ = !error && numbers.size() > 32;
    if (!made_) return;
    std::replace(numbers.begin() + 32, numbers.end(), '.', ',');
    directory_.write("xx.utf8/LC_NUMERIC", numbers);
    setenv("LOCPATH", directory_.path().c_str(), 1);
    setenv("LC_ALL", "xx.UTF-8", 1);
  }
  ~CommaLocale() {
    unsetenv("LOCPATH");
    unsetenv("LC_ALL");
  }
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;

  // False where the C library's locale is not found.
  bool made() const { return made_; }

 private:
  TemporaryDirectory directory_;
  bool made_ = false;
};

// The C library never frees what it makes of LOCPATH.
extern "C" __attribute__((visibility("default"), used)) inline const char* __lsan_default_suppressions() {  // NOLINT
  return "leak:argz";
}
