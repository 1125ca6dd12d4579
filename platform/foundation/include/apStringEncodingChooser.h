#pragma once

#include "apExport.h"
#include "apIStringEncoding.h"

// Gives access to the process's encodings, which exist until the process ends.
class VELPLATFORM_API apStringEncodingChooser {
 public:
  // The default encoding: UTF-8 that preserves every byte.
  const apIStringEncoding* ut_encoding() const;

  // "UTF-8", "ISO-8859-1" or "ASCII", in any case; any other name, also an empty one, gives the default.
  const apIStringEncoding* named(const utString& name) const;
};
