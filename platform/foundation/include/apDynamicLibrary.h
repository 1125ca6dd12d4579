#pragma once

#include "apExport.h"
#include "apILibraryLoaderOperations.h"

// One open library; closed by the destructor. The operations must outlive it.
class VELPLATFORM_API apDynamicLibrary {
 public:
  apDynamicLibrary(const apILibraryLoaderOperations* operations, void* handle)
      : operations_(operations), handle_(handle) {}
  ~apDynamicLibrary();
  apDynamicLibrary(const apDynamicLibrary&) = delete;
  apDynamicLibrary& operator=(const apDynamicLibrary&) = delete;

  // The address of an exported name, or null and a status that is not good.
  void* proc_address(const char* name, apStatus& status) const;

 private:
  const apILibraryLoaderOperations* operations_;
  void* handle_;
};
