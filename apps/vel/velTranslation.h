#pragma once

#include <optional>
#include <string>
#include <vector>

#include "velConsole.h"
#include "velDriver.h"
#include "velExitCode.h"
#include "velJson.h"
#include "velMessages.h"

// The inputs, the output and the options of a translation.
struct velTranslationRequest {
  std::vector<std::string> inputs;
  std::string from;  // format or extension for every input; empty: chosen by the content
  std::string output;
  std::string format;  // format or extension for the output; empty: chosen by the extension of its name
  vlnTranslator::Resources input_options;
  vlnTranslator::Resources output_options;
  // The format of the command's other output; empty: none. Options that only that format has are ignored here.
  std::string other_format;
};

// Checks and runs one request, and reports every error. The request and the console must outlive it.
class velTranslation {
 public:
  velTranslation(const velTranslationRequest& request, velConsole& console)
      : request_(request), console_(console), format_(request.format) {}

  // May be called once.
  velExitCode run();

  // The format name of the writer; before the writer is chosen, the name in the request.
  const std::string& format() const { return format_; }

  // Statistics of the translated model: of its exact parts, and of its parts that have only a mesh.
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

// All messages so far, as a JSON array.
velJson vel_messages_as_json(const velConsole& console);
