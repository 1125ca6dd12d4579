#pragma once

#include "apLanguage.h"

// The result of a file operation.
enum vluFileError : int {
  vluFILE_MADE = 1,
  vluFILE_NOT_FOUND = 2,
  vluFILE_NOT_MADE = 3,
  vluFILE_NOT_COPIED = 4,
  vluFILE_IS_NO_FILE = 5,  // an existing entry that is a directory, a pipe or a device
  vluFILE_IS_FILE = 6,
  vluFILE_IS_DIRECTORY = 7,
  vluFILE_DONE = 8,  // copied or removed
  vluFILE_NOT_REMOVED = 9,
};
