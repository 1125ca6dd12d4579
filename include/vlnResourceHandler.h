#pragma once

#include "coDList.h"
#include "coResourceBase.h"
#include "utObserverPtr.h"
#include "utString.h"
#include "velTableInstance.h"
#include "vlnExport.h"
#include "vlnResourceType.h"
#include "vlnValidator.h"

// Stands for one resource key: checks values for it, lists and shows them, and puts them into a table. With a key that
// nobody knows every operation reports failure or does nothing. The validator is not owned.
class VLN_API vlnResourceHandler {
 public:
  // Nonzero when the value, turned to lower case, is acceptable. A null value never is.
  virtual int validate(const utString& value) const;

  // Stores the value as given. 1 once it has passed validation, also when the table refuses it both as it stands and
  // with numbers read in the user's locale; else 0.
  virtual int insert(const utString& value, velTableInstance& table) const;

  virtual utString display(const coResourceBase* resource) const;
  virtual ~vlnResourceHandler();

  vlnResourceHandler(utObserverPtr<vlnValidator> validator, const utString& key);

  // The type of the key, or null.
  const vlnResourceType* type() const { return type_; }

  // Appends the texts that the type allows.
  void valid_strings(utStringcoDList& list) const;

  // Adds the resource's value under this handler's key. A null resource adds nothing.
  void add_resource(const coResourceBase* resource, velTableInstance& table) const;

 private:
  utString key_;
  const vlnResourceType* type_;
  utObserverPtr<vlnValidator> validator_;
};
