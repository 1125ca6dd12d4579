#include "apDynamicLibrary.h"

#include "apDynamicLibraryLoader.h"

apILibraryLoaderOperations::~apILibraryLoaderOperations() = default;

apDynamicLibrary::~apDynamicLibrary() {
  // A handle that is never closed keeps the code mapped.
  if (lifetime_ == apILibraryLoaderOperations::Lifetime::keep_mapped) static_cast<void>(handle_.release());
}

void* apDynamicLibrary::proc_address(const char* name, apStatus& status) const {
  return operations_->symbol(handle_.get(), name, status);
}

apDynamicLibraryLoader::apDynamicLibraryLoader(utObserverPtr<const apILibraryLoaderOperations> operations)
    : operations_(operations ? operations.get() : apILibraryLoaderOperations::system()) {}

std::unique_ptr<apDynamicLibrary> apDynamicLibraryLoader::load(const apPathName& path, apStatus& status,
                                                               apILibraryLoaderOperations::Lifetime lifetime) const {
  apStatus own;
  auto handle = operations_->open(path, lifetime, own);
  if (handle && own.ok()) return std::make_unique<apDynamicLibrary>(operations_, std::move(handle));
  status.set_failure(own.ok() ? utString("the library could not be opened") : own.failure());
  return nullptr;
}
