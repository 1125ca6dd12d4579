#include "vluServiceInstance.h"

struct ThrowingInstance : vluServiceInstance {
  explicit ThrowingInstance(const velabsAppInfo*) {}
  void service(vluBaseServicePtr&) override { throw 7; }
};
VLU_SERVICE_LIBRARY(ThrowingInstance)
