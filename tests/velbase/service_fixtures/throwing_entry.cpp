#include <stdexcept>

#include "vluServiceInstance.h"

struct ThrowingEntry : vluServiceInstance {
  explicit ThrowingEntry(const velabsAppInfo*) { throw std::runtime_error("over the wall"); }
  void service(vluBaseServicePtr&) override {}
};
VLU_SERVICE_LIBRARY(ThrowingEntry)
