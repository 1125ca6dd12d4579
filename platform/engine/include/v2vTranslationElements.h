#pragma once

#include <vector>

#include "v2vOutputTranslatorElements.h"
#include "v2vTranslatorElements.h"

// A whole request: the inputs in their order, the output, and warnings to report to the user before it runs.
class v2vTranslationElements {
 public:
  v2vTranslationElements(const v2vTranslatorElementscoPageArr& inputs, v2vOutputTranslatorElements output)
      : inputs_(inputs), output_(std::move(output)) {}

  const v2vTranslatorElementscoPageArr& inputs() const { return inputs_; }
  const v2vOutputTranslatorElements& output() const { return output_; }

  void add_warning(const utString& text) { warnings_.push_back(text); }
  const std::vector<utString>& warnings() const { return warnings_; }

 private:
  v2vTranslatorElementscoPageArr inputs_;
  v2vOutputTranslatorElements output_;
  std::vector<utString> warnings_;
};
