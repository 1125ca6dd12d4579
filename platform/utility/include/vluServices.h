#pragma once

#include <map>

#include "apExport.h"
#include "vluBaseServicePtr.h"
#include "vluServiceKey.h"

// The base registry of services: returns the service that was added for a key.
class VELPLATFORM_API vluServices {
 public:
  // Returns true and sets `out` if the key is known.
  virtual bool service(const vluServiceKey& key, vluBaseServicePtr& out);
  virtual void remove_service(const vluServiceKey& key);
  virtual ~vluServices();

  // Replaces an earlier service with the same key.
  void add_service(const vluServiceKey& key, const vluBaseServicePtr& service);

 private:
  std::map<vluServiceKey, vluBaseServicePtr> services_;
};
