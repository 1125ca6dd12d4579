#include "vluServices.h"

bool vluServices::service(const vluServiceKey& key, vluBaseServicePtr& out) {
  auto entry = services_.find(key);
  if (entry == services_.end()) return false;
  out = entry->second;
  return true;
}

void vluServices::remove_service(const vluServiceKey& key) {
  services_.erase(key);
}

vluServices::~vluServices() = default;

void vluServices::add_service(const vluServiceKey& key, const vluBaseServicePtr& service) {
  services_.insert_or_assign(key, service);
}
