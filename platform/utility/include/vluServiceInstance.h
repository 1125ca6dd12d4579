#pragma once

#include "vluBaseServicePtr.h"

class velabsAppInfo;

// The object that a service library creates. The registry owns it and destroys it before the library is unloaded. The
// order of the operations is part of the contract.
class vluServiceInstance {
 public:
  // Stores the service in the holder; the service must exist as long as this object.
  virtual void service(vluBaseServicePtr& holder) = 0;
  virtual ~vluServiceInstance() = default;
};

// The entry point of a service library, exported as "get_instance".
using vluGetInstance = vluServiceInstance* (*)(const velabsAppInfo*);

// Exports the entry point; the constructor of `type` takes the application information.
#define VLU_SERVICE_LIBRARY(type)                                                                              \
  extern "C" __attribute__((visibility("default"))) vluServiceInstance* get_instance(const velabsAppInfo* i) { \
    return new type(i);                                                                                        \
  }
