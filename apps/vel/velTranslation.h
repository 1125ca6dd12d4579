#pragma once

#include <optional>
#include <string>
#include <vector>

#include "velConsole.h"
#include "velDriver.h"
#include "velExitCode.h"
#include "velJson.h"
#include "velMessages.h"

// What is to be translated into what.
struct velTranslationRequest {
  std::vector<std::string> inputs;
  std::string from;  // the format of every input, or its extension; empty: as their content says
  std::string output;
  std::string format;  // of the output, or its extension; empty: the extension of its name chooses
  vlnTranslator::Resources input_options;
  vlnTranslator::Resources output_options;
  std::string
      other_format;  // of the command's other output; empty: none. Options that only it takes have no effect here
};

// One request: checked, carried out, and every fault told. What it is made from must outlive it.
class velTranslation {
 public:
  velTranslation(const velTranslationRequest& request, velConsole& console)
      : request_(request), console_(console), format_(request.format) {}

  // Once.
  velExitCode run();

  // As the writer calls it, once it is chosen; before that as the request names it.
  const std::string& format() const { return format_; }

  // Of the model, when it was translated: of its exact parts, and of those of facets.
  const annStatistics& exact() const { return exact_; }
  const annStatistics& facetted() const { return facetted_; }

  // The counts of the model, or null when it was not translated.
  velJson counts() const;

 private:
  velExitCode choose_output();
  velMessage complaint_about_format() const;
  velExitCode set_options();
  velExitCode carry_out();
  void count_parts();
  velExitCode tell_failure();

  const velTranslationRequest& request_;
  velConsole& console_;
  std::optional<velInstallation> installation_;
  std::optional<velDriver> driver_;
  std::vector<const vlnTranslatorInfo*> readers_;  // of each input
  const vlnTranslatorInfo* writer_ = nullptr;
  std::string format_;
  bool is_done_ = false;
  annStatistics exact_, facetted_;
};

// Everything that was said so far, for an object that is printed.
velJson vel_messages_as_json(const velConsole& console);
