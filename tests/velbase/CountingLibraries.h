#pragma once

#include "apILibraryLoaderOperations.h"

// The operating system's library operations, with a count of the libraries that were opened.
class CountingLibraries : public apILibraryLoaderOperations {
 public:
  Handle open(const apPathName& path, Lifetime lifetime, apStatus& status) const override {
    ++opened;
    return system()->open(path, lifetime, status);
  }
  void* symbol(void* library, const char* name, apStatus& status) const override {
    return system()->symbol(library, name, status);
  }

  mutable int opened = 0;
};
