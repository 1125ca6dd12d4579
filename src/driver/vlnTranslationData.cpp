#include "vlnTranslationData.h"

void vlnTranslationData::clear() {
  *this = vlnTranslationData();
}

int vlnTranslationData::is_unset() const {
  const bool unset = input_files_.empty() || input_formats_.empty() || input_tables_.empty() || output_files_.empty() ||
                     output_formats_.empty() || output_tables_.empty() || output_messages_.empty() ||
                     error_messages_.empty() || statuses_.empty() || type_ == vlnTRANSLATION_UNSET;
  return unset ? 1 : 0;
}
