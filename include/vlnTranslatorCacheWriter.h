#pragma once

#include <string>

#include "apIStringEncoding.h"
#include "apRegularFile.h"
#include "utString.h"
#include "vlnExport.h"
#include "vlnTranslatorDlls.h"
#include "vlnTranslatorLoadStatus.h"

// Writes "translators.lst": one text record for each translator, so that a later start needs no library to describe
// them. Writing opens every library that is not loaded yet. The file is truncated at once. To keep the old file on
// failure, write to another name and rename.
//
// A record is "{" on a line, then one value a line, then "}". The values are: file name, direction, format name, file
// types, extensions, filter text, category, further text, further number. Each line is indented by two spaces and ends
// in a comma, except the last. Texts are in double quotes, lists in braces. Nothing is escaped, so a record is skipped
// (vlnLOAD_ENCODING_FAILED) if
// - a value contains a double quote, a line feed, a carriage return, a null character or an unbalanced brace;
// - the encoding cannot represent its file name, its format name or an extension;
// - a line would be longer than the reader's limit of 1023 characters;
// - one of its file types has no name.
//
// A record is also skipped if its library cannot be opened; the status then gives the reason.
//
// Only a regular file is written: a pipe or a device is reported as vlnLOAD_CACHE_UNWRITABLE and not opened.
class VLN_API vlnTranslatorCacheWriter {
 public:
  // Writes all records once: inputs, then outputs. The sets and the encoding must outlive the writer. Without an
  // encoding texts are UTF-8.
  vlnTranslatorCacheWriter(const utString& cache_file, const vlnTranslatorDlls& inputs,
                           const vlnTranslatorDlls& outputs, const apIStringEncoding* encoding, int& records_written,
                           vlnTranslatorLoadStatus& status);
  ~vlnTranslatorCacheWriter();

  // Writes all records again to the open file, after those of the first pass, so each record is there twice. Returns
  // the number of complete records written.
  int make_cache_file(vlnTranslatorLoadStatus& status);

  // Writes one complete record or nothing. For a null description it writes nothing and returns a status that is not
  // set.
  vlnTranslatorLoadStatus write_next_dll(const vlnTranslatorInfo* info);

  // The text of one record, from the description alone; its library need not be open. Empty if a value cannot be
  // written.
  static std::string record_text(const vlnTranslatorInfo& info, const apIStringEncoding& encoding);

 private:
  int write_set(const vlnTranslatorDlls& set, vlnTranslatorLoadStatus& status);

  const vlnTranslatorDlls& inputs_;
  const vlnTranslatorDlls& outputs_;
  const apIStringEncoding* encoding_;
  apStatus opening_;
  apRegularFileWriter file_;
};
