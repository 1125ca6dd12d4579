#pragma once

#include <memory>

#include "apDynamicLibrary.h"
#include "utObserverPtr.h"

// Opens dynamic libraries through the given operations, or through the operating system's if they are null. A library
// whose start-up code throws ends the process, because the exception cannot leave the system's loader.
class VELPLATFORM_API apDynamicLibraryLoader {
 public:
  explicit apDynamicLibraryLoader(utObserverPtr<const apILibraryLoaderOperations> operations = nullptr);

  // Returns null, and a status with the reason, if the library cannot be opened.
  std::unique_ptr<apDynamicLibrary> load(
      const apPathName& path, apStatus& status,
      apILibraryLoaderOperations::Lifetime lifetime = apILibraryLoaderOperations::Lifetime::unload) const;

 private:
  const apILibraryLoaderOperations* operations_;
};
