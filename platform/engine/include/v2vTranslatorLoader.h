#pragma once

#include <memory>

#include "apDynamicLibraryLoader.h"
#include "apExport.h"
#include "apPathName.h"
#include "coTable.h"
#include "utString.h"
#include "v2vTranslatorLibrary.h"

// Opens translator libraries. Not thread-safe.
class VELPLATFORM_API v2vTranslatorLoader {
 public:
  explicit v2vTranslatorLoader(utObserverPtr<const apILibraryLoaderOperations> operations = nullptr);

  // Returns null if the file is not a translator: not a library, without an entry point, or built for another
  // interface.
  std::unique_ptr<v2vTranslatorLibrary> load_library_path(const apPathName& path) const;

  // Why the last attempt to open a path failed, as human-readable text; null if it did not fail.
  utString failure(const apPathName& path) const;

 private:
  apDynamicLibraryLoader libraries_;
  mutable coTable<apString, utString> failures_;
};
