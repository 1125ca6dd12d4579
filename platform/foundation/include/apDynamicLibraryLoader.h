#pragma once

#include <memory>

#include "apDynamicLibrary.h"
#include "utObserverPtr.h"

// Opens dynamic libraries through the given operations, or through the operating system's when given none. The
// system's loader lets no exception through: a library whose start-up code throws ends the process.
class VELPLATFORM_API apDynamicLibraryLoader {
 public:
  explicit apDynamicLibraryLoader(utObserverPtr<const apILibraryLoaderOperations> operations = nullptr);

  // Null, and a status that says why, when the library cannot be opened.
  std::unique_ptr<apDynamicLibrary> load(
      const apPathName& path, apStatus& status,
      apILibraryLoaderOperations::Lifetime lifetime = apILibraryLoaderOperations::Lifetime::unload) const;

 private:
  const apILibraryLoaderOperations* operations_;
};
