#pragma once

#include <memory>

#include "apIStringCompare.h"
#include "apIStringEncoding.h"
#include "apPathName.h"
#include "velabsAppInfo.h"
#include "vlnExport.h"
#include "vlnSecureTranslatorInfoFactory.h"
#include "vlnTranslatorDlls.h"
#include "vlnTranslatorLoadStatus.h"
#include "vlnTranslatorSearchPath.h"

class vlnLibraryIndex;

// Fills the two translator sets at start-up: first from the cache, then from every library on the search path that is
// not in the cache. With a complete cache no library is opened. Each directory is listed twice: for the records of the
// cache, and by the lister of the search path for the other libraries. The encoding, the comparison and the description
// factory are not owned; without a description factory both sets stay empty.
class VLN_API vlnTranslatorDllsFactory {
 public:
  vlnTranslatorDllsFactory(const apIStringEncoding* encoding, const apIStringCompare* compare,
                           const vlnSecureTranslatorInfoFactory* descriptions)
      : encoding_(encoding), compare_(compare), descriptions_(descriptions) {}

  // Replaces both sets. An invalid `cache_file` means that there is no cache; an empty `preferred_output_format` means
  // no preference. If the search path is empty both sets are empty and the cache is ignored. The status lists every
  // kind of failure; translators without a failure are in the sets.
  vlnTranslatorLoadStatus create_translator_dlls(const apPathName& cache_file,
                                                 const vlnTranslatorSearchPath& search_path,
                                                 const utString& preferred_output_format, const velabsAppInfo* app_info,
                                                 std::unique_ptr<vlnTranslatorDlls>& inputs,
                                                 std::unique_ptr<vlnTranslatorDlls>& outputs) const;

  std::unique_ptr<vlnTranslatorDlls> empty_dlls() const;

 private:
  void get_translators_not_in_cache(const vlnLibraryIndex& libraries, vlnTranslatorDlls& inputs,
                                    vlnTranslatorDlls& outputs, vlnTranslatorLoadStatus& status) const;

  const apIStringEncoding* encoding_;
  const apIStringCompare* compare_;
  const vlnSecureTranslatorInfoFactory* descriptions_;
};
