#pragma once

#include "apExport.h"
#include "utString.h"
#include "vluFileType.h"

// Determines the type of a file by its content; the name is ignored.
class VELPLATFORM_API vluFileTypeFinder {
 public:
  // Reads a bounded part of the file and never blocks. Directories, devices, pipes, empty, unreadable and unrecognised
  // files are vluUNKNOWN. So are files that match several formats equally well.
  static vluFileType find_file_type(const utString& path);

  // True for text in UTF-16, with or without a byte order mark. Such text has no file type: readers expect one byte for
  // each character of their keywords.
  static bool is_utf16_text(const utString& path);
};
