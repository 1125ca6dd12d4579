#pragma once

#include <memory>

#include "vlnExport.h"
#include "vlnSecureTranslatorInfo.h"

// Creates descriptions that share a loader, an encoding and a comparison. None of the three is owned.
class VLN_API vlnSecureTranslatorInfoFactory {
 public:
  vlnSecureTranslatorInfoFactory(const v2vTranslatorLoader* loader, const apIStringEncoding* encoding,
                                 const apIStringCompare* compare)
      : loader_(loader), encoding_(encoding), compare_(compare) {}

  // An empty description, for a cache record to fill.
  std::unique_ptr<vlnSecureTranslatorInfo> create_info() const;

  // The description filled from the library, or null. The result of loading is merged into `status`.
  std::unique_ptr<vlnSecureTranslatorInfo> make_info_from_dll(const apPathName& library,
                                                              vlnTranslatorLoadStatus& status) const;

 private:
  const v2vTranslatorLoader* loader_;
  const apIStringEncoding* encoding_;
  const apIStringCompare* compare_;
};
