#include "velabsTranslatorCategory.h"

#include <climits>
#include <mutex>
#include <vector>

namespace {

// Every category that was ever requested. Never destroyed: descriptions hold references until the process ends.
struct Categories {
  std::mutex lock;
  std::vector<coPrf<velabsTranslatorCategory>> known{
      std::make_shared<velabsTranslatorCategory>("Mesh", 1),
      std::make_shared<velabsTranslatorCategory>("Exact", 2),
      std::make_shared<velabsTranslatorCategory>("Exchange", 3),
      std::make_shared<velabsTranslatorCategory>("Native", 4),
      std::make_shared<velabsTranslatorCategory>("View", 5),
  };
};

}  // namespace

coPrf<velabsTranslatorCategory> velabsTranslatorCategory::find(const utString& name) {
  static auto* categories = new Categories;
  const std::lock_guard guard(categories->lock);
  for (const auto& category : categories->known) {
    if (category->category_name() == name) return category;
  }
  const utString shown = name.is_null() ? utString("") : name;
  categories->known.push_back(std::make_shared<velabsTranslatorCategory>(shown, INT_MAX));
  return categories->known.back();
}
