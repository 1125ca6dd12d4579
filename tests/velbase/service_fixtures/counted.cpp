#include "CountedService.h"
#include "vluServiceInstance.h"

namespace {

std::vector<std::string>* events = nullptr;

struct Library {
  ~Library() {
    if (events) events->push_back("unloaded");
  }
} library;

class CountedInstance : public vluServiceInstance {
 public:
  explicit CountedInstance(const velabsAppInfo* app_info) : service_{BUILD_NUMBER, app_info, nullptr} {}
  ~CountedInstance() override {
    events = service_.events;
    if (events) events->push_back("instance destroyed");
  }
  void service(vluBaseServicePtr& holder) override { holder = vluBaseServicePtr(&service_); }

 private:
  CountedService service_;
};

}  // namespace

VLU_SERVICE_LIBRARY(CountedInstance)
