#pragma once

#include "apLanguage.h"

// The type of the entry at a path, or the error that prevented the check.
enum vlnPathListError : int {
  vlnPathIsFile = 0,  // a regular file or a character device
  vlnPathNotFound = 2,
  vlnPathError = 5,
  vlnPathNotFileOrDir = 6,
  vlnPathIsDirectory = 7,
  vlnPathRetryLimit = 8,
  vlnPathNameTooLong = 10,
  vlnPathNoPermission = 11,
  vlnPathTooManyLinks = 12,
};
