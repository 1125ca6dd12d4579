#pragma once

#include "v2vOutputTranslatorElements.h"
#include "v2vTranslatorElements.h"

// A whole request: the inputs in their order, and the output.
class v2vTranslationElements {
 public:
  v2vTranslationElements(const v2vTranslatorElementscoPageArr& inputs, v2vOutputTranslatorElements output)
      : inputs_(inputs), output_(std::move(output)) {}

  const v2vTranslatorElementscoPageArr& inputs() const { return inputs_; }
  const v2vOutputTranslatorElements& output() const { return output_; }

 private:
  v2vTranslatorElementscoPageArr inputs_;
  v2vOutputTranslatorElements output_;
};
