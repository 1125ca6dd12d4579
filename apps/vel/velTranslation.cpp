#include "velTranslation.h"

#include <algorithm>

#include "velCounts.h"
#include "velFiles.h"
#include "velFormatOptions.h"
#include "velInputCheck.h"
#include "velInterrupt.h"
#include "velOptionCheck.h"
#include "velOutputCheck.h"
#include "velTranslators.h"

velExitCode velTranslation::run() {
  if (const velExitCode code = vel_check_input_files(request_.inputs, console_)) return code;
  if (const velExitCode code = vel_check_output(request_.output, request_.inputs, console_)) return code;
  installation_.emplace(console_);
  if (!installation_->found()) return velEXIT_FAILED;
  driver_.emplace(*installation_, console_);
  driver_->load();
  if (const velExitCode code = vel_choose_readers(request_.inputs, request_.from, *driver_, readers_, console_)) {
    return code;
  }
  if (const velExitCode code = choose_output()) return code;
  if (const velExitCode code = set_options()) return code;
  return carry_out();
}

velExitCode velTranslation::choose_output() {
  const vlnTranslatorDlls& writers = driver_->outputs();
  writer_ = request_.format.empty() ? writers.translator_for_file(request_.output)
                                    : vel_translator_named(writers, request_.format);
  if (!writer_) {
    const std::string& subject = request_.format.empty() ? request_.output : request_.format;
    const std::string packages =
        request_.format.empty() ? vel_packages_for_file(vel_last_component(subject)) : vel_packages_for_format(subject);
    console_.error(packages.empty() ? vel_text(complaint_about_format(), {subject, vel_format_names({&writers})})
                                    : vel_text(velMSG_WRITER_NOT_BUILT, {subject, packages}));
    return velEXIT_NO_TRANSLATOR;
  }
  format_ = writer_->format_name().ut_string().str();
  const std::string complaint = vel_library_complaint(*driver_, *writer_, request_.output);
  if (complaint.empty()) return velEXIT_DONE;
  console_.error(complaint);
  return velEXIT_NO_TRANSLATOR;
}

// The number of the message about an output without a writer.
velMessage velTranslation::complaint_about_format() const {
  if (!request_.format.empty()) return velMSG_NO_WRITER;
  const std::size_t dot = vel_last_component(request_.output).find('.');
  return dot == std::string::npos ? velMSG_OUTPUT_WITHOUT_EXTENSION : velMSG_NO_FORMAT_FOR_NAME;
}

velExitCode velTranslation::set_options() {
  vlnTranslator::Resources in = request_.input_options;
  vlnTranslator::Resources out = request_.output_options;
  const bool input_good = vel_check_options(*driver_, readers_, "--in", in, console_);
  std::vector<const vlnTranslatorInfo*> writers{writer_};
  const vlnTranslatorInfo* other =
      request_.other_format.empty() ? nullptr : vel_translator_named(driver_->outputs(), request_.other_format);
  if (other) writers.push_back(other);
  if (!vel_check_options(*driver_, writers, "--out", out, console_) || !input_good) return velEXIT_USAGE;
  if (other) {
    const velFormatOptions own(*driver_, *writer_);
    std::erase_if(out, [&](const auto& option) { return !own.find(option.first); });
  }
  for (const auto& [key, value] : in) driver_->set_input_resource(key, value);
  for (const auto& [key, value] : out) driver_->set_output_resource(key, value);
  return velEXIT_DONE;
}

velExitCode velTranslation::carry_out() {
  const std::vector<utString> inputs(request_.inputs.begin(), request_.inputs.end());
  driver_->set_input_file_list(itIterator<utString>(inputs));
  driver_->use_readers(readers_);
  driver_->output_file_and_format(request_.output, format_);
  const bool done = driver_->run();
  console_.end_progress();
  if (!done) return tell_failure();
  count_parts();
  is_done_ = true;
  return velEXIT_DONE;
}

void velTranslation::count_parts() {
  std::vector<annPlacedBody> parts = ann_placed_bodies(driver_->document());
  const auto first_facetted = std::stable_partition(
      parts.begin(), parts.end(), [](const annPlacedBody& part) { return part.node->body.shape != nullptr; });
  exact_ = ann_statistics({parts.begin(), first_facetted}, false);
  facetted_ = ann_statistics({first_facetted, parts.end()}, false);
}

velExitCode velTranslation::tell_failure() {
  if (vel_interrupted()) {
    console_.error(vel_text(velMSG_CANCELLED_NOT_WRITTEN, {request_.output}));
    return velEXIT_FAILED;
  }
  vel_tell_errors(vel_explained(driver_->errors(), request_.inputs, readers_), request_.output,
                  vel_text(velMSG_NOTHING_WRITTEN), console_);
  return driver_->num_failed() == 0 ? velEXIT_FAILED : velEXIT_BAD_INPUT;
}

velJson velTranslation::counts() const {
  return is_done_ ? vel_counts_as_json(vel_counts(ann_placed_bodies(driver_->document()))) : velJson(nullptr);
}

velJson vel_messages_as_json(const velConsole& console) {
  velJson messages = velJson::array();
  for (const auto& message : console.messages()) {
    messages.push_back({{"severity", vel_severity_name(message.severity)}, {"text", message.text}});
  }
  return messages;
}
