#pragma once

#include <memory>

#include "apExport.h"
#include "apPathName.h"
#include "apStatus.h"

// Opens dynamic libraries, as an interface that a test can implement.
class VELPLATFORM_API apILibraryLoaderOperations {
 public:
  // Whether closing a library unloads it, or leaves its code mapped because objects that it created still exist.
  enum class Lifetime { unload, keep_mapped };

  // An open library and the function that closes it. The handle is independent of the operations, so a library may
  // outlive them.
  using Handle = std::unique_ptr<void, void (*)(void*)>;

  virtual ~apILibraryLoaderOperations();

  // Returns null, and a status with the reason, if the library cannot be opened. A relative path is rejected, and so is
  // a file that is truncated or not a regular file. If a library is no longer open and its file has changed, the new
  // content is opened, even if the system could not unload the old one.
  virtual Handle open(const apPathName& path, Lifetime lifetime, apStatus& status) const = 0;
  virtual void* symbol(void* library, const char* name, apStatus& status) const = 0;

  // The operating system's operations; they exist until the process ends.
  static const apILibraryLoaderOperations* system();
};
