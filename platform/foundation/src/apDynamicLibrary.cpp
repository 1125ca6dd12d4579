#include "apDynamicLibrary.h"

#include "apDynamicLibraryLoader.h"

apILibraryLoaderOperations::~apILibraryLoaderOperations() = default;

apDynamicLibrary::~apDynamicLibrary() {
  operations_->close(handle_);
}

void* apDynamicLibrary::proc_address(const char* name, apStatus& status) const {
  return operations_->symbol(handle_, name, status);
}

apDynamicLibraryLoader::apDynamicLibraryLoader(utObserverPtr<const apILibraryLoaderOperations> operations)
    : operations_(operations ? operations.get() : apILibraryLoaderOperations::system()) {}

std::unique_ptr<apDynamicLibrary> apDynamicLibraryLoader::load(const apPathName& path, apStatus& status,
                                                               apILibraryLoaderOperations::Lifetime lifetime) const {
  apStatus own;
  void* handle = operations_->open(path, lifetime, own);
  if (handle && own.ok()) return std::make_unique<apDynamicLibrary>(operations_, handle);

  // Operations that give a handle and a failure at once keep nothing open.
  if (handle) operations_->close(handle);
  status.set_failure(own.ok() ? utString("the library could not be opened") : own.failure());
  return nullptr;
}
