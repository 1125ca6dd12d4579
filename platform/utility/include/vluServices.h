#pragma once

#include <map>

#include "apExport.h"
#include "vluBaseServicePtr.h"
#include "vluServiceKey.h"

// The base registry of services: what was added under a key is found under it.
class VELPLATFORM_API vluServices {
 public:
  // True, and `out` set, when the key is known.
  virtual bool service(const vluServiceKey& key, vluBaseServicePtr& out);
  virtual void remove_service(const vluServiceKey& key);
  virtual ~vluServices();

  // Takes the place of an earlier service with the same key.
  void add_service(const vluServiceKey& key, const vluBaseServicePtr& service);

 private:
  std::map<vluServiceKey, vluBaseServicePtr> services_;
};
