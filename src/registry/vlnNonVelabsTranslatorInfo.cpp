#include "vlnNonVelabsTranslatorInfo.h"

vlnNonVelabsTranslatorInfo::vlnNonVelabsTranslatorInfo(const vlnFormatName& name, const utString& text, int number,
                                                       const v2vTranslatorLoader* loader,
                                                       const apIStringEncoding* encoding,
                                                       const apIStringCompare* compare)
    : vlnSecureTranslatorInfo(loader, encoding, compare) {
  set_format_name(name);
  set_further(text, number);
  set_loaded();
}

vlnNonVelabsTranslatorInfo::~vlnNonVelabsTranslatorInfo() = default;

const vlnTranslatorInfo* vlnNonVelabsTranslatorInfo::load_now(int& status) const {
  status = 0;
  return this;
}
