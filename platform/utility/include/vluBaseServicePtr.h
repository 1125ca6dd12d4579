#pragma once

#include "apLanguage.h"

// A service as the registry hands it out: a pointer that owns nothing, so that releasing it runs no code of the
// service's library. What it points at is agreed between the service and its users, by key.
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
