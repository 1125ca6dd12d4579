#include "apStringCompareInsensitive.h"

apIStringCompare::~apIStringCompare() = default;

apStringCompareInsensitive::apStringCompareInsensitive(const apIStringEncoding*) {}

bool apStringCompareInsensitive::equal(const apString& left, const apString& right) const {
  return !left.invalid() && !right.invalid() && ap_equal_folded(left.view(), right.view());
}
