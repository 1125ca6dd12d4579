#pragma once

#include "vlnExport.h"
#include "vlnResourceType.h"

// A resource type with finitely many values. A value is valid if the suite's table can create an entry from it.
class VLN_API vlnFiniteResourceType : public vlnResourceType {
 public:
  int validate(const utString& key, const utString& value, utObserverPtr<vlnValidator> validator) const override;
};
