#pragma once

#include <utility>

#include "apExport.h"
#include "apILibraryLoaderOperations.h"

// One open library. The destructor closes it, unless its code must stay mapped. The operations that opened it need not
// exist then.
class VELPLATFORM_API apDynamicLibrary {
 public:
  apDynamicLibrary(const apILibraryLoaderOperations* operations, apILibraryLoaderOperations::Handle handle)
      : operations_(operations), handle_(std::move(handle)) {}
  ~apDynamicLibrary();
  apDynamicLibrary(const apDynamicLibrary&) = delete;
  apDynamicLibrary& operator=(const apDynamicLibrary&) = delete;

  // The address of an exported name, or null and a failed status. Uses the operations, which must still exist.
  void* proc_address(const char* name, apStatus& status) const;

  // Sets whether the destructor leaves the code mapped. The last call counts.
  void set_lifetime(apILibraryLoaderOperations::Lifetime lifetime) { lifetime_ = lifetime; }

 private:
  const apILibraryLoaderOperations* operations_;
  apILibraryLoaderOperations::Handle handle_;
  apILibraryLoaderOperations::Lifetime lifetime_ = apILibraryLoaderOperations::Lifetime::unload;
};
