#pragma once

#include "coDList.h"
#include "coResourceBase.h"
#include "utObserverPtr.h"
#include "utString.h"
#include "velTableInstance.h"
#include "vlnExport.h"
#include "vlnResourceType.h"
#include "vlnValidator.h"

// Handles one resource key: validates values for it, lists and displays them, and stores them in a table. With an
// unknown key every operation reports failure or does nothing. The validator is not owned.
class VLN_API vlnResourceHandler {
 public:
  // Nonzero if the value, in lower case, is valid. A null value is invalid.
  virtual int validate(const utString& value) const;

  // Stores the value unchanged. Returns 1 if it is valid, else 0. Also returns 1 for a valid value that the table
  // rejects both unchanged and with numbers read in the user's locale.
  virtual int insert(const utString& value, velTableInstance& table) const;

  virtual utString display(const coResourceBase* resource) const;
  virtual ~vlnResourceHandler();

  vlnResourceHandler(utObserverPtr<vlnValidator> validator, const utString& key);

  // The type of the key, or null.
  const vlnResourceType* type() const { return type_; }

  // Appends the texts that the type accepts.
  void valid_strings(utStringcoDList& list) const;

  // Adds the resource's value under this handler's key. Does nothing for a null resource.
  void add_resource(const coResourceBase* resource, velTableInstance& table) const;

 private:
  utString key_;
  const vlnResourceType* type_;
  utObserverPtr<vlnValidator> validator_;
};
