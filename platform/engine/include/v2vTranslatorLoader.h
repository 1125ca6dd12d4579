#pragma once

#include <memory>

#include "apDynamicLibraryLoader.h"
#include "apExport.h"
#include "apPathName.h"
#include "coTable.h"
#include "utString.h"
#include "v2vTranslatorLibrary.h"

// Opens translator libraries. Not for several threads at once.
class VELPLATFORM_API v2vTranslatorLoader {
 public:
  explicit v2vTranslatorLoader(utObserverPtr<const apILibraryLoaderOperations> operations = nullptr);

  // Null for what is no translator: not a library, without an entry point, or built for another interface.
  std::unique_ptr<v2vTranslatorLibrary> load_library_path(const apPathName& path) const;

  // Why a path was refused the last time, for people; null when it was not.
  utString failure(const apPathName& path) const;

 private:
  apDynamicLibraryLoader libraries_;
  mutable coTable<apString, utString> failures_;
};
