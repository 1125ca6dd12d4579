#include "vlnSecureTranslatorInfoFactory.h"

std::unique_ptr<vlnSecureTranslatorInfo> vlnSecureTranslatorInfoFactory::create_info() const {
  return std::unique_ptr<vlnSecureTranslatorInfo>(new vlnSecureTranslatorInfo(loader_, encoding_, compare_));
}

std::unique_ptr<vlnSecureTranslatorInfo> vlnSecureTranslatorInfoFactory::make_info_from_dll(
    const apPathName& library, vlnTranslatorLoadStatus& status) const {
  auto info = create_info();
  const vlnTranslatorLoadStatus loaded = info->update_info_from_dll(library);
  status.merge_status(loaded);
  if (!loaded.ok()) info.reset();
  return info;
}
