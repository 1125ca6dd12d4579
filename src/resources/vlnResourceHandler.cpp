#include "vlnResourceHandler.h"

#include "velnlsLocaleNumbers.h"

vlnResourceHandler::vlnResourceHandler(utObserverPtr<vlnValidator> validator, const utString& key)
    : key_(key), type_(vlnResourceType::look_up_type(key)), validator_(validator) {}

vlnResourceHandler::~vlnResourceHandler() = default;

int vlnResourceHandler::validate(const utString& value) const {
  if (!type_ || value.is_null()) return 0;
  return type_->validate(key_, value.lower_case(), validator_);
}

int vlnResourceHandler::insert(const utString& value, velTableInstance& table) const {
  // A virtual call, so that the validation of a derived handler is used.
  if (!type_ || !validate(value)) return 0;
  if (!table.add_resource(key_, value)) {
    const velnlsLocaleNumbers numbers;
    table.add_resource(key_, value);
  }
  return 1;
}

utString vlnResourceHandler::display(const coResourceBase* resource) const {
  return type_ ? type_->display(resource) : utString();
}

void vlnResourceHandler::valid_strings(utStringcoDList& list) const {
  if (type_) type_->valid_strings(list);
}

void vlnResourceHandler::add_resource(const coResourceBase* resource, velTableInstance& table) const {
  if (type_ && resource) table.add_resource(key_, type_->as_string(resource));
}
