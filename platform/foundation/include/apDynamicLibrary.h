#pragma once

#include <utility>

#include "apExport.h"
#include "apILibraryLoaderOperations.h"

// One open library; closed by the destructor, also after the operations that opened it are gone.
class VELPLATFORM_API apDynamicLibrary {
 public:
  apDynamicLibrary(const apILibraryLoaderOperations* operations, apILibraryLoaderOperations::Handle handle)
      : operations_(operations), handle_(std::move(handle)) {}

  // The address of an exported name, or null and a status that is not good. Asks the operations, which must live.
  void* proc_address(const char* name, apStatus& status) const;

 private:
  const apILibraryLoaderOperations* operations_;
  apILibraryLoaderOperations::Handle handle_;
};
