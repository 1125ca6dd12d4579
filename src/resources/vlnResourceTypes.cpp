#include "vlnResourceTypes.h"

#include "coResourceTableMaker.h"
#include "velResourceTable.h"

int vlnFiniteResourceType::validate(const utString& key, const utString& value, utObserverPtr<vlnValidator>) const {
  coResourceTable scratch;
  const coResourceTableMaker maker(vel_resource_table_inquire());
  return maker.create_entry(key, value, scratch) == coResourceTableMaker::no_error ? 1 : 0;
}

int vlnResourceType_utString::validate(const utString&, const utString&, utObserverPtr<vlnValidator>) const {
  return 1;
}

int vlnResourceType_utString::matching_type(const coResourceBase* resource) const {
  return dynamic_cast<const coResource<utString>*>(resource) ? 1 : 0;
}

int vlnResourceType_double::validate(const utString& key, const utString& value,
                                     utObserverPtr<vlnValidator> validator) const {
  return validator && validator->validate_double(key, value) ? 1 : 0;
}

int vlnResourceType_double::matching_type(const coResourceBase* resource) const {
  return dynamic_cast<const coResource<double>*>(resource) ? 1 : 0;
}

int vlnResourceType_int::validate(const utString& key, const utString& value,
                                  utObserverPtr<vlnValidator> validator) const {
  return validator && validator->validate_int(key, value) ? 1 : 0;
}

int vlnResourceType_int::matching_type(const coResourceBase* resource) const {
  return dynamic_cast<const coResource<int>*>(resource) ? 1 : 0;
}

void vlnResourceType_utBool::valid_strings(utStringcoDList& list) const {
  list.append("False");
  list.append("True");
}

utString vlnResourceType_utBool::as_string(const coResourceBase* resource) const {
  const utString text = vlnResourceType::as_string(resource);
  if (text == "0") return "False";
  if (text == "1") return "True";
  return text;
}

int vlnResourceType_utBool::matching_type(const coResourceBase* resource) const {
  return dynamic_cast<const coResource<utBool>*>(resource) ? 1 : 0;
}
