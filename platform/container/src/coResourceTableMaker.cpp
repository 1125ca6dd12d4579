#include "coResourceTableMaker.h"

#include <utility>

int coResourceTableMaker::create_entry(const utString& key, const utString& value, coResourceTable& table) const {
  const coResourceBase* known = known_->find(key);
  if (!known) return unknown_key;
  auto resource = known->with_text(value);
  if (!resource) return bad_value;
  table.put(std::move(resource));
  return no_error;
}
