#pragma once

#include "apExport.h"
#include "utString.h"
#include "vluFileType.h"

// The names of the file types. They are unique and contain no quotes, braces, commas or line breaks.
class VELPLATFORM_API vluFileTypeInfo {
 public:
  // "Unknown" for vluUNKNOWN and for a number outside the enumeration.
  static utString name(vluFileType type);

  // Returns false, with `type` unchanged, if the name is unknown (case matters).
  static bool type_by_name(const utString& name, vluFileType& type);
};
