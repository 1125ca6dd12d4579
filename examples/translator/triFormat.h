#pragma once

#include "velabsLibBase.h"

// The description of the format that the reader and the writer share; `Base` is velabsLibInput or velabsLibOutput. A
// file is a list of triangles as text: nine numbers on each line, the coordinates of three corners in
// counter-clockwise order seen from outside. Blank lines and lines that begin with "#" are ignored. The format has
// neither parts nor colours nor a unit.
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
