#include "velabsTranslatorCategory.h"

#include <climits>
#include <vector>

coPrf<velabsTranslatorCategory> velabsTranslatorCategory::find(const utString& name) {
  using Categories = std::vector<coPrf<velabsTranslatorCategory>>;
  // Never destroyed: descriptions hold references until the process ends.
  static const auto* known = new Categories{
      std::make_shared<velabsTranslatorCategory>("Mesh", 1),
      std::make_shared<velabsTranslatorCategory>("Exact", 2),
      std::make_shared<velabsTranslatorCategory>("Exchange", 3),
      std::make_shared<velabsTranslatorCategory>("Native", 4),
      std::make_shared<velabsTranslatorCategory>("View", 5),
  };
  for (const auto& category : *known) {
    if (category->category_name() == name) return category;
  }
  return std::make_shared<velabsTranslatorCategory>(name.is_null() ? utString("") : name, INT_MAX);
}
