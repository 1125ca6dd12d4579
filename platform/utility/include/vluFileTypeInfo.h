#pragma once

#include "apExport.h"
#include "utString.h"
#include "vluFileType.h"

// The names of the file types. They are unique and hold no quotes, braces, commas or line breaks.
class VELPLATFORM_API vluFileTypeInfo {
 public:
  // "Unknown" for vluUNKNOWN and for a number that is no file type.
  static utString name(vluFileType type);

  // False, and `type` as it was, when no type has that name (case matters).
  static bool type_by_name(const utString& name, vluFileType& type);
};
