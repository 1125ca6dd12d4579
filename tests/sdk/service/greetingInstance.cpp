#include "vluServiceInstance.h"

namespace {

class GreetingInstance : public vluServiceInstance {
 public:
  explicit GreetingInstance(const velabsAppInfo*) {}
  void service(vluBaseServicePtr& holder) override { holder = vluBaseServicePtr(greeting_); }

 private:
  char greeting_[6] = "hello";
};

}  // namespace

VLU_SERVICE_LIBRARY(GreetingInstance)
