#pragma once

#include <utility>
#include <vector>

#include "apFileName.h"
#include "apIStringEncoding.h"
#include "apPathName.h"
#include "coDList.h"
#include "itIterator.h"
#include "utString.h"
#include "velabsTranslatorCategory.h"
#include "vlnExport.h"
#include "vlnFormatName.h"
#include "vlnTranslatorLoadStatus.h"
#include "vlnTranslatorType.h"
#include "vlnUntranslatedFilterElement.h"
#include "vluFileType.h"

// The description of one translator library: its format and direction, what it accepts, its path, and its entry in a
// file dialog. Filled once, from the library or from a cache record, and only read afterwards. Owned by its translator
// set; not copied. The encoding is not owned and must outlive all use of the description.
class VLN_API vlnTranslatorInfo {
 public:
  // Completes the description from its library. Returns this description, or null and a status with the reason.
  virtual const vlnTranslatorInfo* load_now(vlnTranslatorLoadStatus& status) const = 0;
  virtual ~vlnTranslatorInfo();
  vlnTranslatorInfo(const vlnTranslatorInfo&) = delete;
  vlnTranslatorInfo& operator=(const vlnTranslatorInfo&) = delete;

  const vlnFormatName& format_name() const { return format_name_; }
  vlnTranslatorType type() const { return type_; }

  // Nonzero if the description came from the cache and its library was not opened yet.
  int from_cache() const { return from_cache_; }

  // Null until it is set.
  const velabsTranslatorCategorycoPrf& translator_category() const { return category_; }

  // The full path of the library, and its last component.
  const apPathName& file() const { return file_; }
  utString file_ut() const;
  apFileName file_name() const;
  utString file_name_ut() const;

  utString filter_string() const { return filter_; }

  // Without dots, the default one first.
  itIterator<apString> get_extensions() const { return itIterator<apString>(extensions_); }
  void get_file_types(intcoDList& types) const { types = file_types_; }

  // A further text and number that the library provides; stored and not interpreted.
  const utString& further_text() const { return further_text_; }
  int further_number() const { return further_number_; }

  // The library's short name: its file name without the extension and without a leading "lib" (case matters), so
  // libiges.dll gives "iges". "lib.dll" gives an empty tag.
  apString tag() const;

  // The entry for a file dialog.
  vlnUntranslatedFilterElement filter() const;

  // `path` with its extension replaced by the default one, or unchanged if there are no extensions.
  apPathName change_extension(const apPathName& path) const;

  // 1 if the translator accepts such a file, else 0. An input translator checks only the file type, an output
  // translator only the extension, ignoring case.
  int is_compatible(vluFileType file_type, const utString& extension) const;

  // 1 for the pseudo-translator that only displays data: its format is named "Viewer", in any case.
  int is_viewer() const;

  // The format name without "/" and spaces, followed by ".rsc": "A / B X" gives ABX.rsc.
  apFileName resource_file_name() const;

 protected:
  // Without an encoding texts are UTF-8.
  explicit vlnTranslatorInfo(const apIStringEncoding* encoding);

  const apIStringEncoding* encoding() const { return encoding_; }

  // Appends without a check for duplicates.
  void add_extension(apString extension);
  void add_file_type(vluFileType type) { file_types_.append(static_cast<int>(type)); }
  void clear_extensions() { extensions_.clear(); }
  void clear_file_types() { file_types_.clear(); }

  void set_file(apPathName file) { file_ = std::move(file); }
  void set_filter(utString filter) { filter_ = std::move(filter); }
  void set_format_name(vlnFormatName name) { format_name_ = std::move(name); }
  void set_from_cache(int from_cache) { from_cache_ = from_cache; }
  void set_type(vlnTranslatorType type) { type_ = type; }
  // Shares the category. A null category is replaced by the neutral one, which has no name.
  void set_translator_category(const velabsTranslatorCategorycoPrf& category);
  void set_further(const utString& text, int number);

  // A copy without any "/".
  static utString remove_forward_slashes(const utString& text);

 private:
  friend class vlnTranslatorCacheReader;

  vlnFormatName format_name_;
  intcoDList file_types_;
  std::vector<apString> extensions_;
  apPathName file_;
  utString filter_;
  vlnTranslatorType type_ = vlnTRANSLATOR_OUTPUT;
  int from_cache_ = 0;
  velabsTranslatorCategorycoPrf category_;
  const apIStringEncoding* encoding_;
  utString further_text_;
  int further_number_ = 0;
};
