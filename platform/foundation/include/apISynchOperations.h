#pragma once

#include <memory>

#include "apExport.h"

// One lock.
class VELPLATFORM_API apICriticalSection {
 public:
  virtual ~apICriticalSection();
  virtual void enter() = 0;
  virtual void leave() = 0;
};

// Creates locks, as an interface that a host with another thread library can implement.
class VELPLATFORM_API apISynchOperations {
 public:
  virtual ~apISynchOperations();
  virtual std::unique_ptr<apICriticalSection> make_critical_section() const = 0;

  // The standard library's locks; the object exists until the process ends.
  static const apISynchOperations* system();
};
