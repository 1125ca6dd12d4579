#pragma once

#include "vlnExport.h"
#include "vlnResourceType.h"

// A resource type with finitely many values: a value is acceptable when the suite's table can make an entry of it.
class VLN_API vlnFiniteResourceType : public vlnResourceType {
 public:
  int validate(const utString& key, const utString& value, utObserverPtr<vlnValidator> validator) const override;
};
