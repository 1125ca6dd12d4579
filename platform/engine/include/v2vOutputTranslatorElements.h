#pragma once

#include "annDocument.h"
#include "v2vTranslatorElements.h"

// The output of a request, and the document that transfers the model. If the document is null the engine uses a private
// one.
class v2vOutputTranslatorElements : public v2vTranslatorElements {
 public:
  v2vOutputTranslatorElements() = default;
  v2vOutputTranslatorElements(utString file, const velTableInstance* resources, utString library, annDocument* document,
                              int is_viewer, utString format)
      : v2vTranslatorElements(std::move(file), resources, std::move(library), is_viewer, std::move(format)),
        document_(document) {}

  annDocument* document() const { return document_; }

 private:
  annDocument* document_ = nullptr;
};
