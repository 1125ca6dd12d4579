#pragma once

#include <memory>

#include "apIStringCompare.h"
#include "v2vTranslatorLibrary.h"
#include "v2vTranslatorLoader.h"
#include "vlnExport.h"
#include "vlnTranslatorInfo.h"

// A description that can fill itself from its library. One from the cache is complete as far as choosing goes; its
// library is opened when `load_now` is first called. The loader, the encoding and the comparison are not owned; the
// destructor uses none of them.
class VLN_API vlnSecureTranslatorInfo : public vlnTranslatorInfo {
 public:
  // Opens the library unless that was done before, merging what came of it into `status`. A second call after a success
  // returns at once and leaves `status` alone; after a failure it tries again.
  const vlnTranslatorInfo* load_now(vlnTranslatorLoadStatus& status) const override;
  ~vlnSecureTranslatorInfo() override;

  // Nonzero until the library was read successfully.
  int invalid() const { return needs_loading_; }

 protected:
  vlnSecureTranslatorInfo(const v2vTranslatorLoader* loader, const apIStringEncoding* encoding,
                          const apIStringCompare* compare);

  // Opens `library`, lets its translator object describe itself and takes that over. A library that throws, gives no
  // object or claims nonsense costs only itself: the status says which, and the description keeps what it had filled.
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
