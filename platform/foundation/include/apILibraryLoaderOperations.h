#pragma once

#include <memory>

#include "apExport.h"
#include "apPathName.h"
#include "apStatus.h"

// How dynamic libraries are opened, so that a test can count or replace it.
class VELPLATFORM_API apILibraryLoaderOperations {
 public:
  // Whether closing a library really unloads it, or leaves its code mapped because something that it made lives on.
  enum class Lifetime { unload, keep_mapped };

  // An open library and the way to close it, which stands on its own: a library may outlive the operations that opened
  // it.
  using Handle = std::unique_ptr<void, void (*)(void*)>;

  virtual ~apILibraryLoaderOperations();

  // Null, and a status that says why, when the library cannot be opened. A relative path is refused, and so is a file
  // that is no regular file or that was cut short. A library that nobody has open any more and whose file has changed
  // is opened as it is now, also when the system could not unload the old one.
  virtual Handle open(const apPathName& path, Lifetime lifetime, apStatus& status) const = 0;
  virtual void* symbol(void* library, const char* name, apStatus& status) const = 0;

  // The operating system's own; it lives as long as the process.
  static const apILibraryLoaderOperations* system();
};
