#pragma once

#include <memory>

#include "apDynamicLibrary.h"
#include "apExport.h"
#include "utString.h"
#include "velabsLibInput.h"
#include "velabsLibOutput.h"

// A library that was opened as a translator. It owns its handle; its code stays mapped after that, because what it made
// may live on, unless the library is refused.
class VELPLATFORM_API v2vTranslatorLibrary {
 public:
  v2vTranslatorLibrary(std::unique_ptr<apDynamicLibrary> library, velabsReadWrapper read, velabsWriteWrapper write);

  bool is_input() const { return read_ != nullptr; }
  bool is_output() const { return write_ != nullptr; }

  // Null when the library does not have that direction.
  velabsReadWrapper read_wrapper() const { return read_; }
  velabsWriteWrapper write_wrapper() const { return write_; }

  // Unloads the code together with this object, so that the file is opened afresh when it has changed. Only while
  // nothing that the library made is in use.
  void refuse() { library_->set_lifetime(apILibraryLoaderOperations::Lifetime::unload); }

 private:
  std::unique_ptr<apDynamicLibrary> library_;
  velabsReadWrapper read_;
  velabsWriteWrapper write_;
};
