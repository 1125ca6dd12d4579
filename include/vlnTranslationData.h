#pragma once

#include "coPageArr.h"
#include "utString.h"
#include "velTableInstance.h"
#include "vlnExport.h"
#include "vlnProgressFinish.h"
#include "vlnTranslationType.h"

// The record of one run for the application: files, formats and resources of both sides, the messages received and a
// status for each translation. The nine lists are independent and may have different lengths. The `set_` operations
// append, except `set_type`. Access by index takes 0 to the length minus one and is not checked.
class VLN_API vlnTranslationData {
 public:
  // Empties every list and unsets the type.
  void clear();

  void set_input_file(const utString& file) { input_files_.append(file); }
  void set_input_format(const utString& format) { input_formats_.append(format); }
  void set_input_resource_table(const velTableInstance& table) { input_tables_.append(table); }
  void set_output_file(const utString& file) { output_files_.append(file); }
  void set_output_format(const utString& format) { output_formats_.append(format); }
  void set_output_resource_table(const velTableInstance& table) { output_tables_.append(table); }
  void set_output_messages(const utString& messages) { output_messages_.append(messages); }
  void set_error_messages(const utString& messages) { error_messages_.append(messages); }
  void set_translation_status(vlnProgressFinish status) { statuses_.append(static_cast<int>(status)); }
  void set_type(vlnTranslationType type) { type_ = type; }

  const utString& input_file(int index) const { return input_files_[at(index)]; }
  const utString& input_format(int index) const { return input_formats_[at(index)]; }
  const velTableInstance& input_resource_table(int index) const { return input_tables_[at(index)]; }
  const utString& output_file(int index) const { return output_files_[at(index)]; }
  const utString& output_format(int index) const { return output_formats_[at(index)]; }
  const velTableInstance& output_resource_table(int index) const { return output_tables_[at(index)]; }
  const utString& output_messages(int index) const { return output_messages_[at(index)]; }
  const utString& error_messages(int index) const { return error_messages_[at(index)]; }
  vlnProgressFinish status(int index) const { return static_cast<vlnProgressFinish>(statuses_[at(index)]); }
  vlnTranslationType type() const { return static_cast<vlnTranslationType>(type_); }

  int num_input_files() const { return static_cast<int>(input_files_.count()); }
  int num_output_files() const { return static_cast<int>(output_files_.count()); }

  // Nonzero if any of the lists is empty or the type is not set.
  int is_unset() const;

 private:
  static std::size_t at(int index) { return static_cast<std::size_t>(index); }

  coPageArr<utString> input_files_;
  coPageArr<utString> input_formats_;
  coPageArr<velTableInstance> input_tables_;
  coPageArr<utString> output_files_;
  coPageArr<utString> output_formats_;
  coPageArr<velTableInstance> output_tables_;
  coPageArr<utString> output_messages_;
  coPageArr<utString> error_messages_;
  coPageArr<int> statuses_;
  int type_ = vlnTRANSLATION_UNSET;
};
