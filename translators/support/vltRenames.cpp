#include "vltRenames.h"

#include "vltNames.h"

void vltRenames::take(std::string_view own, std::string_view written) {
  if (own.empty() || own == written) return;
  if (count_++ == 0) first_ = vlt_quoted(own) + " becomes " + vlt_quoted(written);
}

void vltRenames::tell(const char* rule, velabsOutput& output) const {
  if (count_ == 0) return;
  const std::string others = count_ > 1 ? ", and " + std::to_string(count_ - 1) + " more likewise" : "";
  output.message(velabsNOTE, utString(rule + (": " + first_ + others)));
}
