#include "velnlsLocaleNumbers.h"

velnlsLocaleNumbers::velnlsLocaleNumbers() : numbers_(nullptr), before_(uselocale(nullptr)) {
  // Only the number format of this thread's locale is replaced.
  locale_t base = duplocale(before_);
  if (!base) return;
  numbers_ = newlocale(LC_NUMERIC_MASK, "", base);
  if (!numbers_) {
    freelocale(base);
    return;
  }
  uselocale(numbers_);
}

velnlsLocaleNumbers::~velnlsLocaleNumbers() {
  if (!numbers_) return;
  uselocale(before_);
  freelocale(numbers_);
}
