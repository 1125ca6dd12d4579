#include "vlnTranslator.h"

#include <algorithm>

#include "apFrustrumChooser.h"
#include "apStringEncodingChooser.h"
#include "v2vTranslationElements.h"
#include "v2vVel2vel.h"
#include "vlnResourceHandler.h"

vlnTranslator::vlnTranslator() = default;

vlnTranslator::~vlnTranslator() {
  document_.reset();
  validator_.reset();
  loader_.reset();
  libraries_.reset();
  thread_comm_.reset();
}

void vlnTranslator::initialise(std::shared_ptr<annDocument> document, std::shared_ptr<vlnValidator> validator,
                               utObserverPtr<const apILibraryLoaderOperations> libraries,
                               utObserverPtr<const apISynchOperations> synch) {
  set_up_application();
  thread_comm_ = std::make_unique<v2vThreadComm>(synch.get());
  libraries_ = std::make_unique<v2vTranslatorLoader>(libraries);
  // The sets use comparisons of the earlier loader.
  inputs_.reset();
  outputs_.reset();
  app_dirs_.reset();
  loader_ = create_dll_loader();
  document_ = std::move(document);
  validator_ = std::move(validator);
  if (!loader_) return;
  loader_->set_app_info(app_info());
  loader_->load_dlls(inputs_, outputs_);
  app_dirs_ = loader_->app_dir_map();
  loader_->finish_loading();
}

void vlnTranslator::set_input_file(const utString& file) {
  input_files_.assign(1, file);
}

void vlnTranslator::set_input_file_list(itIterator<utString> files) {
  while (++files) input_files_.push_back(files());
}

void vlnTranslator::set_input_resource(const utString& name, const utString& value) {
  input_resources_.emplace_back(name, value);
}

void vlnTranslator::set_output_resource(const utString& name, const utString& value) {
  output_resources_.emplace_back(name, value);
}

void vlnTranslator::output_file_and_format(const utString& file, const utString& format) {
  output_file_ = file;
  output_format_ = format;
}

bool vlnTranslator::run() {
  // Reset here, because a derived `translate_input_files` may reject the request too.
  if (thread_comm_) thread_comm_->forget_counts();
  ignored_values_.clear();
  return translate_input_files();
}

int vlnTranslator::num_passed() {
  if (!thread_comm_) return 0;
  const v2vTranslationDetails details = thread_comm_->current_translation_details();
  return details.num_processed() - details.num_failed();
}

int vlnTranslator::num_failed() {
  return thread_comm_ ? thread_comm_->current_translation_details().num_failed() : 0;
}

utString vlnTranslator::input_file(int index) {
  return input_files_.at(static_cast<std::size_t>(index));
}

bool vlnTranslator::translate_input_files() {
  if (!inputs_ || !outputs_) return false;
  v2vTranslatorElementscoPageArr inputs;
  for (const utString& file : input_files_) {
    const utString resolved = resolve_input_file(file);
    v2vTranslatorElements elements = input_elements(resolved);
    if (elements.invalid()) {
      const utObserverPtr<velabsOutput> secondary = secondary_output();
      v2vVel2vel().report_input_without_translator(resolved, primary_output(), secondary);
      return false;
    }
    inputs.append(std::move(elements));
  }
  v2vTranslationElements request(inputs, output_elements(output_file_, output_format_));
  for (const utString& warning : ignored_values_) request.add_warning(warning);
  thread_comm_->register_translation(request);

  // Applications may create their outputs on request. The order is fixed: secondary output, primary output, application
  // information.
  const utObserverPtr<velabsOutput> secondary = secondary_output();
  const utObserverPtr<velabsOutput> primary = primary_output();
  const utObserverPtr<velabsAppInfo> info = app_info();
  return v2vVel2vel().translate(info, *thread_comm_, *libraries_, request, primary, secondary) != 0;
}

v2vTranslatorElements vlnTranslator::input_elements(const utString& file) {
  return input_elements(file, inputs_ ? inputs_->translator_for_file(file) : nullptr);
}

v2vTranslatorElements vlnTranslator::input_elements(const utString& file, const vlnTranslatorInfo* translator) {
  if (!translator) return {};
  vlnTranslatorLoadStatus status(vlnLOAD_OK);
  translator->load_now(status);
  set_up_resources(translator, input_table_, input_resources_);
  return {file, &input_table_, translator->file_ut(), translator->is_viewer(), translator->format_name().ut_string()};
}

v2vOutputTranslatorElements vlnTranslator::output_elements(const utString& file, const utString& format) {
  const vlnTranslatorInfo* translator = outputs_ ? outputs_->translator_for_format(format) : nullptr;
  if (!translator) return {};
  vlnTranslatorLoadStatus status(vlnLOAD_OK);
  translator->load_now(status);
  set_up_resources(translator, output_table_, output_resources_);
  return {file,
          &output_table_,
          translator->file_ut(),
          document_.get(),
          translator->is_viewer(),
          translator->format_name().ut_string()};
}

void vlnTranslator::set_up_resources(const vlnTranslatorInfo* info, velTableInstance& table,
                                     const Resources& resources) {
  table.initialise(resource_path(info));
  for (const auto& [name, value] : resources) {
    const vlnResourceHandler handler(validator_.get(), name);
    if (handler.validate(value)) {
      handler.insert(value, table);
    } else {
      note_ignored_value(name, value, handler);
    }
  }
}

void vlnTranslator::note_ignored_value(const utString& name, const utString& value, const vlnResourceHandler& handler) {
  utString warning;
  if (!handler.type()) {
    warning = utString("there is no resource ") + name + "; its value \"" + value + "\" is ignored";
  } else {
    warning = utString("\"") + value + "\" is not a valid value of the resource " + name + "; it is ignored";
    utStringcoDList valid;
    handler.valid_strings(valid);
    const char* separator = "; use one of ";
    for (const utString& text : valid) {
      warning = warning + separator + text;
      separator = ", ";
    }
  }
  // A warning is kept once, because several inputs may be given the same values.
  if (std::find(ignored_values_.begin(), ignored_values_.end(), warning) == ignored_values_.end()) {
    ignored_values_.push_back(warning);
  }
}

const apIStringEncoding* vlnTranslator::encoding() {
  const utObserverPtr<velabsAppInfo> info = app_info();
  return info ? info->ut_encoding() : apStringEncodingChooser().ut_encoding();
}

utString vlnTranslator::resource_path(const utObserverPtr<const vlnTranslatorInfo>& info) {
  if (!info || !app_dirs_) return "";
  const utString name = encoding()->to_utString(info->resource_file_name().string());
  const vlnSchemaDir resources = app_dirs_->get_schema_dir(vlnSchemaResources);
  const utString path = resources.find_file(name);
  return path.empty() ? resources.user_dir() + "/default" : path;
}

void vlnTranslator::remove_output_file() {
  const apPathName path(encoding()->to_apString(output_file_), encoding());
  const apIFileOperations* files = apFrustrumChooser().file_operations();
  if (files->file_exists(path)) files->delete_file(path);
}
