#pragma once

#include <locale.h>

#include "apExport.h"

// While one lives, numbers are read and shown in the user's locale, on this thread only; what was in force before comes
// back exactly. A locale that the system does not know changes nothing.
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
