#include "velValidator.h"

#include <cmath>
#include <limits>

#include "apNumberText.h"

bool velValidator::validate_int(const utString&, const utString& value) {
  long long number = 0;
  return ap_parse_int(value.view(), number) && number >= std::numeric_limits<int>::min() &&
         number <= std::numeric_limits<int>::max();
}

bool velValidator::validate_double(const utString&, const utString& value) {
  double number = 0;
  return ap_parse_double(value.view(), number) && std::isfinite(number);
}
