#pragma once

#include <array>

#include "coDList.h"
#include "coResourceBase.h"
#include "coTable.h"
#include "utObserverPtr.h"
#include "utString.h"
#include "vlnExport.h"
#include "vlnValidator.h"

// The type of a resource: validates values, lists the texts of a finite type, and displays values. One object of each
// type exists for the life of the process. It is found by a resource or by a resource's key.
class VLN_API vlnResourceType {
 public:
  // The value as text, with numbers in the user's locale; null text for a null resource.
  virtual utString display(const coResourceBase* resource) const;

  // Nonzero if the value is valid for the key. Numbers are checked by the validator; without one they are all invalid.
  virtual int validate(const utString& key, const utString& value, utObserverPtr<vlnValidator> validator) const = 0;

  // Appends the texts that a finite type accepts. Does nothing for other types.
  virtual void valid_strings(utStringcoDList& list) const;

  // The value as text; null text for a null resource.
  virtual utString as_string(const coResourceBase* resource) const;

  // Nonzero if the resource's value has this type.
  virtual int matching_type(const coResourceBase* resource) const = 0;

  virtual ~vlnResourceType();

  // The type of the suite's resource with this key, or null. Resources that were added to the suite's table since the
  // last call are found too.
  static const vlnResourceType* look_up_type(const utString& key);

 protected:
  // The first type that accepts the resource; the text type if none does.
  static const vlnResourceType* look_up_type(const coResourceBase* resource);
  static void build_key_map();

  static constexpr int s_number_of_types = 17;
  static const std::array<const vlnResourceType*, s_number_of_types> s_type_array;
  static coTable<utString, const vlnResourceType*> s_key_map;
};
