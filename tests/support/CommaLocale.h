#pragma once

#include <cstdlib>

#include "TemporaryDirectory.h"

// While it lives, the user's locale has a decimal comma. Include it in one source of a program.
class CommaLocale {
 public:
  CommaLocale() {
    const std::string command = "localedef -i de_DE -f UTF-8 '" + (directory_ / "xx.UTF-8") + "' >/dev/null 2>&1";
    made_ = std::system(command.c_str()) == 0;
    if (!made_) return;
    setenv("LOCPATH", directory_.path().c_str(), 1);
    setenv("LC_ALL", "xx.UTF-8", 1);
  }
  ~CommaLocale() {
    unsetenv("LOCPATH");
    unsetenv("LC_ALL");
  }
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;

  // False where no locale can be made.
  bool made() const { return made_; }

 private:
  TemporaryDirectory directory_;
  bool made_ = false;
};

// The C library never frees what it makes of LOCPATH.
extern "C" __attribute__((visibility("default"), used)) inline const char* __lsan_default_suppressions() {  // NOLINT
  return "leak:argz";
}
