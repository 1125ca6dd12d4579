#include "vlnOrderedStringPairs.h"

namespace {

const utString none("");

}  // namespace

void vlnOrderedStringPairs::add_pair(const utString& s1, const utString& s2) {
  const vlnStringPair& pair = pairs_.append(vlnStringPair(s1, s2));
  by_string1_.put(s1, &pair);
  by_string2_.put(s2, &pair);
}

const utString& vlnOrderedStringPairs::string1(const utString& s2) const {
  const vlnStringPair* pair = by_string2_.read(s2);
  return pair ? pair->string1() : none;
}

const utString& vlnOrderedStringPairs::string2(const utString& s1) const {
  const vlnStringPair* pair = by_string1_.read(s1);
  return pair ? pair->string2() : none;
}
