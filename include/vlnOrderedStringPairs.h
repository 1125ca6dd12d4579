#pragma once

#include "coPageArr.h"
#include "coTable.h"
#include "utString.h"
#include "vlnExport.h"
#include "vlnStringPair.h"

// Pairs of strings that translate either way, in the order in which they were added. A string that stands in several
// pairs is translated by the latest one; the walk yields them all.
class VLN_API vlnOrderedStringPairs {
 public:
  vlnOrderedStringPairs() = default;
  vlnOrderedStringPairs(const vlnOrderedStringPairs&) = delete;
  vlnOrderedStringPairs& operator=(const vlnOrderedStringPairs&) = delete;

  void add_pair(const utString& s1, const utString& s2);
  coPageArr<vlnStringPair>::Iterator iterator() const { return pairs_.iterator(); }

  // The other string of the pair, or "" when there is none.
  const utString& string1(const utString& s2) const;
  const utString& string2(const utString& s1) const;

 private:
  coPageArr<vlnStringPair> pairs_;
  coTable<utString, const vlnStringPair*> by_string1_;
  coTable<utString, const vlnStringPair*> by_string2_;
};
