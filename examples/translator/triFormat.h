#pragma once

#include "velabsLibBase.h"

// What the reader and the writer say of the format alike; `Base` is velabsLibInput or velabsLibOutput. A file holds
// bare triangles as text: nine numbers on each line, the coordinates of three corners that run counter-clockwise as
// seen from outside. Blank lines and lines that begin with "#" mean nothing. There are no parts, no colours and no
// unit.
template <typename Base>
class triFormat : public Base {
 public:
  const char* library_version() const override { return "1.0.0"; }
  const char* format_name() const override { return "TRI"; }
  const char* filter() const override { return "Triangle Files (*.tri;*.raw)|*.tri;*.raw"; }
  void extensions(utStringcoSet& extensions) const override {
    extensions.add("*tri");
    extensions.add("raw");
  }
  velabsTranslatorCategorycoPrf translator_category() const override { return velabsTranslatorCategory::find("Mesh"); }
};
