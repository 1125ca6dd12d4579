#pragma once

#include <memory>

#include "apIStringCompare.h"
#include "v2vTranslatorLibrary.h"
#include "v2vTranslatorLoader.h"
#include "vlnExport.h"
#include "vlnTranslatorInfo.h"

// A description that can fill itself from its library. A description from the cache is sufficient for choosing a
// translator; its library is opened at the first call of `load_now`. The loader, the encoding and the comparison are
// not owned; the destructor uses none of them.
class VLN_API vlnSecureTranslatorInfo : public vlnTranslatorInfo {
 public:
  // Opens the library if that has not succeeded before and merges the result into `status`. A second call after a
  // success returns at once and does not change `status`; after a failure it tries again.
  const vlnTranslatorInfo* load_now(vlnTranslatorLoadStatus& status) const override;
  ~vlnSecureTranslatorInfo() override;

  // Nonzero until the library was read successfully.
  int invalid() const { return needs_loading_; }

 protected:
  vlnSecureTranslatorInfo(const v2vTranslatorLoader* loader, const apIStringEncoding* encoding,
                          const apIStringCompare* compare);

  // Opens `library` and fills the description from its translator object. A library that throws, returns no object or
  // describes itself wrongly is reported in the status; the description keeps the values set before the failure.
  vlnTranslatorLoadStatus update_info_from_dll(const apPathName& library);

  void set_loaded() { needs_loading_ = 0; }

 private:
  friend class vlnSecureTranslatorInfoFactory;

  vlnTranslatorLoadStatus ask_library(const apPathName& library);
  vlnTranslatorLoadStatus take_description(const apPathName& library, const velabsLibBase& object);
  vlnTranslatorLoadStatus take_extensions(const velabsLibBase& object);

  int needs_loading_ = 1;
  std::unique_ptr<v2vTranslatorLibrary> library_;
  const v2vTranslatorLoader* loader_;
  const apIStringCompare* compare_;
};
