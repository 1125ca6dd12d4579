#pragma once

#include "apLanguage.h"

// A service as returned by the registry: a non-owning pointer, so releasing it runs no code of the service's library.
// The service and its users agree on the type by the key.
class vluBaseServicePtr {
 public:
  vluBaseServicePtr() = default;
  explicit vluBaseServicePtr(void* service) : service_(service) {}

  explicit operator bool() const { return service_ != nullptr; }
  void* get() const { return service_; }
  template <typename T>
  T* as() const {
    return static_cast<T*>(service_);
  }

 private:
  void* service_ = nullptr;
};
