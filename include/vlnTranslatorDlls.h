#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "apFileName.h"
#include "apIStringEncoding.h"
#include "apPathName.h"
#include "coPageArr.h"
#include "itIterator.h"
#include "utString.h"
#include "vlnExport.h"
#include "vlnFormatName.h"
#include "vlnSecureTranslatorInfo.h"
#include "vlnUntranslatedFilterElement.h"

// The known translators of one direction, in the order in which they were added; the first match is always chosen. The
// set owns the descriptions: pointers and iterators to them are valid until the set is destroyed or changed. The
// encoding is not owned. Created by vlnTranslatorDllsFactory.
class VLN_API vlnTranslatorDlls {
 public:
  virtual ~vlnTranslatorDlls();
  vlnTranslatorDlls(const vlnTranslatorDlls&) = delete;
  vlnTranslatorDlls& operator=(const vlnTranslatorDlls&) = delete;

  // Takes ownership of the description; does nothing for a null one. Duplicates are kept. The lists returned below are
  // copied from the description at this moment.
  void add_translator(std::unique_ptr<vlnSecureTranslatorInfo> info);

  std::size_t count() const { return descriptions_.count(); }

  // The first translator that accepts the file: an input translator by the file's content, an output translator by the
  // extension of its name. Null if there is none. A missing file has the unknown type.
  const vlnTranslatorInfo* translator_for_file(const utString& path) const;

  // The first translator whose format has this name, ignoring case, or null.
  const vlnTranslatorInfo* translator_for_format(const utString& name) const;

  // The default output format for an input: the preferred format if one was set, else "hpf" for an "iges" input and
  // "iges" for any other. If there is no such translator, the first that is not the viewer; the last one if all are
  // viewers; null for an empty set.
  const vlnTranslatorInfo* default_output_format(const vlnTranslatorInfo* input) const;

  // Applies to all later calls, also if `name` is empty or no translator has it.
  void set_preferred_output_format(const utString& name);

  // The format names, except viewers.
  itIterator<vlnFormatName> formats() const { return itIterator<vlnFormatName>(formats_); }
  itIterator<vlnUntranslatedFilterElement> filter_elements() const {
    return itIterator<vlnUntranslatedFilterElement>(filter_elements_);
  }
  itIterator<apFileName> resource_file_names() const { return itIterator<apFileName>(resource_file_names_); }

 protected:
  explicit vlnTranslatorDlls(const apIStringEncoding* encoding);

 private:
  friend class vlnTranslatorDllsFactory;
  friend class vlnTranslatorDllsIT;

  using Descriptions = coPageArr<std::unique_ptr<vlnSecureTranslatorInfo>>;

  // Makes room for that many translators.
  void reserve(std::size_t count);
  const vlnTranslatorInfo* first_but_viewer() const;

  // For each format the library of the translator that was added last.
  std::unordered_map<vlnFormatName, apPathName> libraries_;
  Descriptions descriptions_;
  utString preferred_output_format_;
  int preferred_is_set_ = 0;
  const apIStringEncoding* encoding_;
  std::vector<vlnFormatName> formats_;
  std::vector<vlnUntranslatedFilterElement> filter_elements_;
  std::vector<apFileName> resource_file_names_;
};
