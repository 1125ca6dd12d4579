#pragma once

#include <type_traits>
#include <vector>

#include "velabsLibInput.h"
#include "velabsLibOutput.h"
#include "vluFileType.h"

// The description that the reader and the writer of one format share.
struct vltFormat {
  const char* name;
  vluFileType file_type;
  std::vector<const char*> extensions;  // the default starts with "*"
  const char* filter;
  const char* category;
};

// Base of a translator that describes itself by a `vltFormat`, which must live as long as the library.
template <typename Base>
class vltDescribed : public Base {
 public:
  vltDescribed(const vltFormat& format, const char* description) : format_(format), description_(description) {}

  const char* library_version() const override { return "1.0.0"; }
  const char* description() const override { return description_; }
  void file_types(intcoSet& types) const override {
    if constexpr (std::is_base_of_v<velabsLibInput, Base>) types.add(format_.file_type);
  }
  void extensions(utStringcoSet& extensions) const override {
    for (const char* extension : format_.extensions) extensions.add(extension);
  }
  const char* filter() const override { return format_.filter; }
  const char* format_name() const override { return format_.name; }
  velabsTranslatorCategorycoPrf translator_category() const override {
    return velabsTranslatorCategory::find(format_.category);
  }

 private:
  const vltFormat& format_;
  const char* description_;
};
