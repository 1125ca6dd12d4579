#pragma once

#include <array>

#include "coDList.h"
#include "coResourceBase.h"
#include "coTable.h"
#include "utObserverPtr.h"
#include "utString.h"
#include "vlnExport.h"
#include "vlnValidator.h"

// The type of a resource: which values are valid, which texts a finite type allows, and how a value is shown. One
// object of each type exists for the life of the process; it is found by a resource or by a resource's key.
class VLN_API vlnResourceType {
 public:
  // The value as text, numbers as the user's locale writes them; null text for a null resource.
  virtual utString display(const coResourceBase* resource) const;

  // Nonzero when the value is acceptable for the key. Numbers are left to the validator; without one none is
  // acceptable.
  virtual int validate(const utString& key, const utString& value, utObserverPtr<vlnValidator> validator) const = 0;

  // Appends the texts that a finite type allows; nothing for an open one.
  virtual void valid_strings(utStringcoDList& list) const;

  // The value as text; null text for a null resource.
  virtual utString as_string(const coResourceBase* resource) const;

  // Nonzero when the resource's value is of this type.
  virtual int matching_type(const coResourceBase* resource) const = 0;

  virtual ~vlnResourceType();

  // The type of the suite's resource with this key, or null. Resources that were added to the suite's table since the
  // last call are found.
  static const vlnResourceType* look_up_type(const utString& key);

 protected:
  // The first type that accepts the resource; the text type when none does.
  static const vlnResourceType* look_up_type(const coResourceBase* resource);
  static void build_key_map();

  static constexpr int s_number_of_types = 17;
  static const std::array<const vlnResourceType*, s_number_of_types> s_type_array;
  static coTable<utString, const vlnResourceType*> s_key_map;
};
