#pragma once

#include "apExport.h"
#include "coResourceTable.h"

// Creates table entries with the types declared in a table of known resources.
class VELPLATFORM_API coResourceTableMaker {
 public:
  enum Error { no_error = 0, unknown_key = 1, bad_value = 2 };

  // `known` must outlive the maker.
  explicit coResourceTableMaker(const coResourceTable& known) : known_(&known) {}

  // Adds (key, value) to `table` as a resource of the key's type. The names of finite types match in any case, Booleans
  // also as "0" and "1". Returns nonzero, with `table` unchanged, if the key is unknown or the value is not valid for
  // its type.
  int create_entry(const utString& key, const utString& value, coResourceTable& table) const;

 private:
  const coResourceTable* known_;
};
