#pragma once

#include <utility>

#include "utString.h"
#include "velabsTranslatorCategory.h"
#include "vlnExport.h"

// One entry of a file dialog: the label with its patterns ("STL Files (*.stl)|*.stl"), the translator's short name, and
// the sort position of its category. A dialog sorts by category order; this class does not.
class VLN_API vlnUntranslatedFilterElement {
 public:
  vlnUntranslatedFilterElement(utString filter, utString tag, const velabsTranslatorCategory& category)
      : filter_(std::move(filter)), tag_(std::move(tag)), category_order_(category.group_order()) {}

  utString filter_string() const { return filter_; }
  utString tag() const { return tag_; }
  int category_order() const { return category_order_; }

 private:
  utString filter_;
  utString tag_;
  int category_order_;
};
