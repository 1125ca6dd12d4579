#pragma once

#include "apExport.h"
#include "coResourceTable.h"

// Makes entries of the types that a table of known resources declares.
class VELPLATFORM_API coResourceTableMaker {
 public:
  enum Error { no_error = 0, unknown_key = 1, bad_value = 2 };

  // `known` must outlive the maker.
  explicit coResourceTableMaker(const coResourceTable& known) : known_(&known) {}

  // Puts (key, value) into `table` as a resource of the type that the key has. The names of finite types match in any
  // case, Booleans also as "0" and "1". Nonzero, and `table` as it was, when the key is not known or the value is none
  // of its type.
  int create_entry(const utString& key, const utString& value, coResourceTable& table) const;

 private:
  const coResourceTable* known_;
};
