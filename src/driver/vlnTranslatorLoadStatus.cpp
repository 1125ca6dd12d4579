#include "vlnTranslatorLoadStatus.h"

#include <utility>

vlnTranslatorLoadStatus::vlnTranslatorLoadStatus() : vlnTranslatorLoadStatus(vlnLOAD_NOT_SET) {}

vlnTranslatorLoadStatus::vlnTranslatorLoadStatus(vlnTranslatorLoadStatusType type)
    : ok_(type == vlnLOAD_OK), invalid_(type == vlnLOAD_NOT_SET), types_{type} {}

vlnTranslatorLoadStatus::vlnTranslatorLoadStatus(apPathName file)
    : failed_files_{std::move(file)}, types_{vlnLOAD_FILE_FAILED} {}

void vlnTranslatorLoadStatus::merge_status(const vlnTranslatorLoadStatus& other) {
  if (&other == this) return;
  if (!other.ok_) ok_ = false;
  failed_files_.insert(failed_files_.end(), other.failed_files_.begin(), other.failed_files_.end());
  types_.insert(other.types_.begin(), other.types_.end());
}
