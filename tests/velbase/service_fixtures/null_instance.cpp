#include "vluServiceInstance.h"

extern "C" __attribute__((visibility("default"))) vluServiceInstance* get_instance(const velabsAppInfo*) {
  return nullptr;
}
