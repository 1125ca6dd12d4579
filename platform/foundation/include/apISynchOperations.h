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

// Makes locks, so that a host can bring its own threads.
class VELPLATFORM_API apISynchOperations {
 public:
  virtual ~apISynchOperations();
  virtual std::unique_ptr<apICriticalSection> make_critical_section() const = 0;

  // The standard library's; it lives as long as the process.
  static const apISynchOperations* system();
};
