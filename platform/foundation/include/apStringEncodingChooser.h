#pragma once

#include "apExport.h"
#include "apIStringEncoding.h"

// Hands out the process's encodings, which live as long as the process.
class VELPLATFORM_API apStringEncodingChooser {
 public:
  // The default: UTF-8 that loses nothing.
  const apIStringEncoding* ut_encoding() const;

  // "UTF-8", "ISO-8859-1" or "ASCII", in any case; anything else, empty text included, gives the default.
  const apIStringEncoding* named(const utString& name) const;
};
