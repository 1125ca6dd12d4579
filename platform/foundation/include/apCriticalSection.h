#pragma once

#include "apISynchOperations.h"

// A lock created from the given operations, or a standard one if they are null. Works with std::lock_guard and
// std::unique_lock.
class VELPLATFORM_API apCriticalSection {
 public:
  explicit apCriticalSection(const apISynchOperations* operations = nullptr);

  void lock() { section_->enter(); }
  void unlock() { section_->leave(); }

 private:
  std::unique_ptr<apICriticalSection> section_;
};
