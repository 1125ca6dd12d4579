#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "apIStringCompare.h"
#include "apIStringEncoding.h"
#include "apPathName.h"
#include "coDList.h"
#include "utString.h"
#include "velabsAppInfo.h"
#include "vlnExport.h"
#include "vlnSecureTranslatorInfoFactory.h"
#include "vlnTranslatorDlls.h"
#include "vlnTranslatorSearchPath.h"

class vlnLibraryIndex;

// Reads "translators.lst" (its layout is described in vlnTranslatorCacheWriter) and turns each record into a
// description marked as from the cache. A record that cannot be parsed, or whose library is no longer on the search
// path, is skipped without a message: discovery then reads that library. Of a line of more than 1023 characters only
// the first 1023 are used. Such a line ends the reading for good; so does an empty line. A file of more than 64 MiB is
// not read. Each directory of the search path is listed once. Nothing that is passed by pointer is owned.
class VLN_API vlnTranslatorCacheReader {
 public:
  // Reads the whole file into the two sets. `result` is 1 if at least one record gave a description, else 0.
  vlnTranslatorCacheReader(vlnTranslatorDlls& inputs, vlnTranslatorDlls& outputs, const apPathName& cache_file,
                           const vlnTranslatorSearchPath& search_path, const vlnSecureTranslatorInfoFactory* factory,
                           const apIStringEncoding* encoding, const apIStringCompare* compare,
                           const velabsAppInfo* app_info, int& result);

  ~vlnTranslatorCacheReader();

  // Continues where the last reading stopped. Returns the same result.
  int read_cache_file();

  // Returns 1 if a record was found (`info` is null if it was skipped), 0 at the end.
  int read_next_dll(std::unique_ptr<vlnSecureTranslatorInfo>& info);

  // Parses the text between the braces of a record. Returns 0, and no description, if any step fails.
  int make_info_from_string(const utString& record, std::unique_ptr<vlnSecureTranslatorInfo>& info) const;

  // The text between the braces of each record, in the order of the file, including skipped records. Valid as long as
  // the reader lives.
  std::vector<std::string_view> records() const;

  // False if the file is damaged: it could not be opened as a regular file, it is too large, reading stopped on a
  // stream error, or it has content but no complete record.
  bool intact() const;

  // False if the file has content after the last record that was found: an incomplete record, or text after an empty or
  // overlong line.
  bool read_to_end() const;

  // Each removes the value that it read from the front of `text`. `extract_set_string` returns the text between a pair
  // of braces, including nested ones, or null if no set is complete. The others return nonzero if there was such a
  // value; an empty quoted text and an empty list are values.
  static utString extract_set_string(utString& text);
  static int extract_string(utString& text, utString& value);
  static int extract_int(utString& text, int& value);
  static int extract_list(utString& text, utStringcoDList& values);

 private:
  // A position between two records.
  struct Place {
    std::size_t byte = 0;
    std::size_t line = 0;
  };

  // Moves to the end of the next record, or to the end of the text if there is none.
  bool take_record(Place& place, std::string_view& record) const;
  bool read_lines(const utString& path);
  // Joins the complete lines at the front of `unjoined` and leaves the rest in it; returns false if the reading ends
  // here.
  bool join_lines(std::string& unjoined, bool is_last);
  bool make_info(std::string_view record, std::unique_ptr<vlnSecureTranslatorInfo>& info) const;
  apPathName find_library(std::string_view recorded) const;
  bool take_file_types(std::string_view& record, vlnTranslatorInfo& info) const;
  bool take_extensions(std::string_view& record, vlnTranslatorInfo& info) const;

  vlnTranslatorDlls& inputs_;
  vlnTranslatorDlls& outputs_;
  std::unique_ptr<const vlnLibraryIndex> libraries_;
  const vlnSecureTranslatorInfoFactory* factory_;
  const apIStringEncoding* encoding_;
  const apIStringCompare* compare_;
  const apIStringEncoding* file_name_encoding_;
  apString library_extension_;
  std::string text_;                      // the file without its line breaks
  std::vector<std::uint32_t> line_ends_;  // the offset in `text_` at which each line ends
  Place place_;
  mutable velabsTranslatorCategorycoPrf category_;  // of the last record
  mutable std::wstring library_name_;               // kept to reuse its memory
  bool readable_ = false;
  bool any_text_ = false;
  bool line_too_long_ = false;
  bool any_text_unread_ = false;  // after the line that ended the reading
  bool any_record_ = false;
};
