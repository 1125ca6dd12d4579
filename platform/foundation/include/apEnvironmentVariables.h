#pragma once

#include "apIProcessEnvironmentOperations.h"
#include "utObserverPtr.h"

// The environment as seen through some operations, or that of the real process when it is given none.
class VELPLATFORM_API apEnvironmentVariables {
 public:
  explicit apEnvironmentVariables(utObserverPtr<apIProcessEnvironmentOperations> operations = nullptr);

  apString get(const apString& name) const;
  int put(const apString& name, const apString& value);

  // The operations of the real process; they live as long as it does.
  static apIProcessEnvironmentOperations* process();

 private:
  utObserverPtr<apIProcessEnvironmentOperations> operations_;
};
