#pragma once

#include "apExport.h"
#include "coPrf.h"
#include "utString.h"

// A group under which dialogs list translators. Categories are owned by the platform and may outlive the library that
// requested them.
class VELPLATFORM_API velabsTranslatorCategory {
 public:
  velabsTranslatorCategory(utString name, int group_order) : name_(std::move(name)), group_order_(group_order) {}

  const utString& category_name() const { return name_; }
  // Groups are listed in this order, the smallest first.
  int group_order() const { return group_order_; }

  // "Mesh", "Exact", "Exchange", "Native" or "View"; any other name gives a neutral category with that name, which is
  // ordered last. Never null.
  static coPrf<velabsTranslatorCategory> find(const utString& name);

 private:
  utString name_;
  int group_order_;
};

using velabsTranslatorCategorycoPrf = coPrf<velabsTranslatorCategory>;
