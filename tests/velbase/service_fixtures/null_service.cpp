#include "vluServiceInstance.h"

struct NullService : vluServiceInstance {
  explicit NullService(const velabsAppInfo*) {}
  void service(vluBaseServicePtr&) override {}
};
VLU_SERVICE_LIBRARY(NullService)
