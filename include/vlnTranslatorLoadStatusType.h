#pragma once

#include "apLanguage.h"

// The kinds of result that a load status collects. The numbers are fixed.
enum vlnTranslatorLoadStatusType : int {
  vlnLOAD_NOT_SET = 0,            // no result yet
  vlnLOAD_OK = 1,                 // success
  vlnLOAD_CACHE_UNREADABLE = 2,   // the cache file exists and cannot be read
  vlnLOAD_CACHE_UNWRITABLE = 3,   // the cache file cannot be written
  vlnLOAD_ENCODING_FAILED = 4,    // a text does not convert through the encoding
  vlnLOAD_NO_WRAPPER = 5,         // a library has no entry for its direction
  vlnLOAD_NO_LIBRARY_OBJECT = 6,  // a library's entry made no object
  vlnLOAD_FILE_FAILED = 7,        // a file is not a translator library; its path is recorded
  vlnLOAD_DIRECTORY_MISSING = 8,  // a directory of the search path does not exist
  vlnLOAD_SEARCH_PATH_EMPTY = 9,  // the search path contains no directory
};
