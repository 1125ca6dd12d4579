#pragma once

#include "apExport.h"
#include "utString.h"
#include "vluFileType.h"

// Tells what a file is by its content alone; its name plays no part.
class VELPLATFORM_API vluFileTypeFinder {
 public:
  // Reads a bounded head of the file and never blocks: directories, devices, pipes, empty, unreadable and unrecognised
  // files are vluUNKNOWN.
  static vluFileType find_file_type(const utString& path);
};
