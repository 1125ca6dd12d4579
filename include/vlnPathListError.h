#pragma once

#include "apLanguage.h"

// What one path turned out to be, or why that could not be told.
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
