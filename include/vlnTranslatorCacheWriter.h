#pragma once

#include <string>

#include "apIStringEncoding.h"
#include "apRegularFile.h"
#include "utString.h"
#include "vlnExport.h"
#include "vlnTranslatorDlls.h"
#include "vlnTranslatorLoadStatus.h"

// Writes "translators.lst": one text record for each translator, so that a later start can describe them without
// opening a library. Writing opens every library that is not loaded yet. The file is truncated at once; whoever wants
// the old one to survive a failure writes to another name and renames.
//
// A record is "{" on a line, then, each line with two blanks in front and a comma behind: file name, direction, format
// name, file types, extensions, filter text, category, further text, and, without a comma, a further number; then "}".
// Texts stand in double quotes, lists in braces. Nothing is escaped, so a record is skipped (vlnLOAD_ENCODING_FAILED)
// when
// - a value contains a double quote, a line feed, a carriage return, a null character or an unbalanced brace;
// - the encoding has no bytes for its file name, its format name or an extension;
// - a line would be longer than the 1023 characters that the reader takes;
// - one of its file types has no name.
// A record is also skipped when its library cannot be opened; the status then gives the reason.
//
// Only a regular file is written: a pipe or a device is unwritable (vlnLOAD_CACHE_UNWRITABLE) and is not opened.
class VLN_API vlnTranslatorCacheWriter {
 public:
  // Makes one whole pass: inputs, then outputs. The sets and the encoding must outlive the writer. Without an encoding
  // texts are UTF-8.
  vlnTranslatorCacheWriter(const utString& cache_file, const vlnTranslatorDlls& inputs,
                           const vlnTranslatorDlls& outputs, const apIStringEncoding* encoding, int& records_written,
                           vlnTranslatorLoadStatus& status);
  ~vlnTranslatorCacheWriter();

  // A further pass on the open file: the records of the first one stay, so each record then stands twice. Returns how
  // many records it wrote whole.
  int make_cache_file(vlnTranslatorLoadStatus& status);

  // Writes one record whole or not at all. Nothing, and a status that is not set, for a null description.
  vlnTranslatorLoadStatus write_next_dll(const vlnTranslatorInfo* info);

  // The text of one record from what the description holds, whether its library was opened or not. Empty when a value
  // keeps it out of the file.
  static std::string record_text(const vlnTranslatorInfo& info, const apIStringEncoding& encoding);

 private:
  int write_set(const vlnTranslatorDlls& set, vlnTranslatorLoadStatus& status);

  const vlnTranslatorDlls& inputs_;
  const vlnTranslatorDlls& outputs_;
  const apIStringEncoding* encoding_;
  apStatus opening_;
  apRegularFileWriter file_;
};
