#pragma once

#include <memory>

#include "coPageArr.h"
#include "vlnExport.h"
#include "vlnTranslatorDlls.h"

// Iterates over the descriptions of a set in the order in which they were added. Starts before the first one:
//
//   vlnTranslatorDllsIT translators(set);
//   while (++translators) use(translators());
class VLN_API vlnTranslatorDllsIT {
 public:
  explicit vlnTranslatorDllsIT(const vlnTranslatorDlls& set) : position_(set.descriptions_.iterator()) {}

  int operator++() { return ++position_; }
  const vlnTranslatorInfo* operator()() const { return position_().get(); }

 private:
  vlnTranslatorDlls::Descriptions::Iterator position_;
};
