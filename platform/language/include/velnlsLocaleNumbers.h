#pragma once

#include <locale.h>

#include "apExport.h"

// While an object of this class exists, numbers are read and displayed in the user's locale, in this thread only. The
// destructor restores the previous locale. A locale that the system does not know changes nothing.
class VELPLATFORM_API velnlsLocaleNumbers {
 public:
  velnlsLocaleNumbers();
  ~velnlsLocaleNumbers();
  velnlsLocaleNumbers(const velnlsLocaleNumbers&) = delete;
  velnlsLocaleNumbers& operator=(const velnlsLocaleNumbers&) = delete;

 private:
  locale_t numbers_;
  locale_t before_;
};
