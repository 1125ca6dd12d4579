#include "unitsConversion.h"
#include "vluServiceInstance.h"

namespace {

class UnitsInstance : public vluServiceInstance {
 public:
  explicit UnitsInstance(const velabsAppInfo*) {}
  void service(vluBaseServicePtr& holder) override {
    // The holder is untyped: store the type that users cast it to.
    holder = vluBaseServicePtr(static_cast<unitsService*>(&conversion_));
  }

 private:
  unitsConversion conversion_;
};

}  // namespace

VLU_SERVICE_LIBRARY(UnitsInstance)
