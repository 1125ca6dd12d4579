#pragma once

#include <concepts>
#include <cstddef>

#include "apLanguage.h"

// A non-owning pointer: its target must outlive it. Converts implicitly from a raw pointer and from an observer of a
// type whose pointer converts.
template <typename T>
class utObserverPtr {
 public:
  constexpr utObserverPtr() = default;
  constexpr utObserverPtr(std::nullptr_t) {}
  constexpr utObserverPtr(T* pointer) : pointer_(pointer) {}
  template <typename U>
  requires std::convertible_to<U*, T*>
  constexpr utObserverPtr(const utObserverPtr<U>& other) : pointer_(other.get()) {}

  constexpr T* get() const { return pointer_; }
  constexpr T* operator->() const { return pointer_; }
  constexpr T& operator*() const { return *pointer_; }
  constexpr explicit operator bool() const { return pointer_ != nullptr; }

  friend constexpr bool operator==(const utObserverPtr&, const utObserverPtr&) = default;

 private:
  T* pointer_ = nullptr;
};
