#pragma once

#include "apExport.h"
#include "utString.h"
#include "vluFileType.h"

// Tells what a file is by its content alone; its name plays no part.
class VELPLATFORM_API vluFileTypeFinder {
 public:
  // Reads a bounded head of the file and never blocks: directories, devices, pipes, empty, unreadable and unrecognised
  // files are vluUNKNOWN.
  // Files that several formats claim are vluUNKNOWN too.
  static vluFileType find_file_type(const utString& path);

  // True for text in UTF-16, with a byte order mark or without. It is of no file type: readers expect one byte for each
  // character of their keywords.
  static bool is_utf16_text(const utString& path);
};
