#pragma once

#include "vlnExport.h"
#include "vlnSecureTranslatorInfo.h"

// The description of a reader or writer that is not a translator library. It has a format name; there is no library to
// open.
class VLN_API vlnNonVelabsTranslatorInfo : public vlnSecureTranslatorInfo {
 public:
  // The text and the number are stored for the caller and not interpreted.
  vlnNonVelabsTranslatorInfo(const vlnFormatName& name, const utString& text, int number,
                             const v2vTranslatorLoader* loader, const apIStringEncoding* encoding,
                             const apIStringCompare* compare);
  ~vlnNonVelabsTranslatorInfo() override;

  using vlnSecureTranslatorInfo::load_now;

  // Sets `status` to 0 and returns this description.
  virtual const vlnTranslatorInfo* load_now(int& status) const;
};
