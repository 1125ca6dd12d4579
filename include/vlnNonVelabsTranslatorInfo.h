#pragma once

#include "vlnExport.h"
#include "vlnSecureTranslatorInfo.h"

// The description of something that writes or reads a format but is no translator library: a format name, and nothing
// to open.
class VLN_API vlnNonVelabsTranslatorInfo : public vlnSecureTranslatorInfo {
 public:
  // The text and the number are carried unread.
  vlnNonVelabsTranslatorInfo(const vlnFormatName& name, const utString& text, int number,
                             const v2vTranslatorLoader* loader, const apIStringEncoding* encoding,
                             const apIStringCompare* compare);
  ~vlnNonVelabsTranslatorInfo() override;

  using vlnSecureTranslatorInfo::load_now;

  // Sets `status` to 0 and gives the description itself.
  virtual const vlnTranslatorInfo* load_now(int& status) const;
};
