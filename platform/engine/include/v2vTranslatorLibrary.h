#pragma once

#include <memory>

#include "apDynamicLibrary.h"
#include "apExport.h"
#include "utString.h"
#include "velabsLibInput.h"
#include "velabsLibOutput.h"

// A library that was opened as a translator. It owns its handle. Its code stays mapped after the destructor, because
// objects that it created may still exist, unless `refuse` was called.
class VELPLATFORM_API v2vTranslatorLibrary {
 public:
  v2vTranslatorLibrary(std::unique_ptr<apDynamicLibrary> library, velabsReadWrapper read, velabsWriteWrapper write);

  bool is_input() const { return read_ != nullptr; }
  bool is_output() const { return write_ != nullptr; }

  // Null if the library does not support that direction.
  velabsReadWrapper read_wrapper() const { return read_; }
  velabsWriteWrapper write_wrapper() const { return write_; }

  // Lets the destructor unload the code, so that the file is opened again if it has changed. Call it only while no
  // object created by the library is in use.
  void refuse() { library_->set_lifetime(apILibraryLoaderOperations::Lifetime::unload); }

 private:
  std::unique_ptr<apDynamicLibrary> library_;
  velabsReadWrapper read_;
  velabsWriteWrapper write_;
};
