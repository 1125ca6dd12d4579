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

// Reads "translators.lst" (vlnTranslatorCacheWriter says how it looks) and turns each record back into a description
// that is marked as from the cache. A record that cannot be parsed, or whose library is no longer on the search path,
// is dropped without a word: discovery then describes that library afresh. Of a line of more than 1023 characters only
// these count; it ends the reading for good, and so does an empty line. A file of more than 64 MiB is not read. Each
// directory of the search path is listed once. Nothing that is passed by pointer is owned.
class VLN_API vlnTranslatorCacheReader {
 public:
  // Reads the file whole into the two sets. `result` is 1 when at least one record gave a description, else 0.
  vlnTranslatorCacheReader(vlnTranslatorDlls& inputs, vlnTranslatorDlls& outputs, const apPathName& cache_file,
                           const vlnTranslatorSearchPath& search_path, const vlnSecureTranslatorInfoFactory* factory,
                           const apIStringEncoding* encoding, const apIStringCompare* compare,
                           const velabsAppInfo* app_info, int& result);

  ~vlnTranslatorCacheReader();

  // Reads on from where the last reading stopped; the same result.
  int read_cache_file();

  // 1 when a record was found (`info` is null when it was dropped), 0 at the end.
  int read_next_dll(std::unique_ptr<vlnSecureTranslatorInfo>& info);

  // Parses what stands between the braces of a record. 0, and no description, when any step fails.
  int make_info_from_string(const utString& record, std::unique_ptr<vlnSecureTranslatorInfo>& info) const;

  // What stands between the braces of each record, in the order of the file, those that were dropped included. Valid as
  // long as the reader lives.
  std::vector<std::string_view> records() const;

  // False when the file is damaged: it could not be opened as a regular file, it is too large, reading stopped on a
  // failed stream, or it has content without one complete record.
  bool intact() const;

  // False when the file holds something behind the last record that was found: a record that was cut off, or what
  // stands behind an empty line or one that is too long.
  bool read_to_end() const;

  // Each takes what it read from the front of `text`. `extract_set_string` gives what stands between a pair of braces,
  // nested ones included, or null when no set is complete. The others return nonzero when there was such a value; an
  // empty text in quotes and an empty list are values.
  static utString extract_set_string(utString& text);
  static int extract_string(utString& text, utString& value);
  static int extract_int(utString& text, int& value);
  static int extract_list(utString& text, utStringcoDList& values);

 private:
  // A place between two records.
  struct Place {
    std::size_t byte = 0;
    std::size_t line = 0;
  };

  // Goes on to behind the next record, or to the end when there is none.
  bool take_record(Place& place, std::string_view& record) const;
  bool read_lines(const utString& path);
  // Joins the whole lines at the front of `unjoined` and leaves the rest in it; false when the reading ends here.
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
  std::vector<std::uint32_t> line_ends_;  // where each line ends in it
  Place place_;
  mutable velabsTranslatorCategorycoPrf category_;  // of the last record
  mutable std::wstring library_name_;               // kept for its room
  bool readable_ = false;
  bool any_text_ = false;
  bool line_too_long_ = false;
  bool any_text_unread_ = false;  // behind the line that ended the reading
  bool any_record_ = false;
};
