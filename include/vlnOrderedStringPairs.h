#pragma once

#include "coPageArr.h"
#include "coTable.h"
#include "utString.h"
#include "vlnExport.h"
#include "vlnStringPair.h"

// A two-way map between strings that keeps the order in which pairs were added. A string in several pairs is translated
// by the latest pair; iteration yields all pairs.
class VLN_API vlnOrderedStringPairs {
 public:
  vlnOrderedStringPairs() = default;
  vlnOrderedStringPairs(const vlnOrderedStringPairs&) = delete;
  vlnOrderedStringPairs& operator=(const vlnOrderedStringPairs&) = delete;

  void add_pair(const utString& s1, const utString& s2);
  coPageArr<vlnStringPair>::Iterator iterator() const { return pairs_.iterator(); }

  // The other string of the pair, or "" if there is no such pair.
  const utString& string1(const utString& s2) const;
  const utString& string2(const utString& s1) const;

 private:
  coPageArr<vlnStringPair> pairs_;
  coTable<utString, const vlnStringPair*> by_string1_;
  coTable<utString, const vlnStringPair*> by_string2_;
};
