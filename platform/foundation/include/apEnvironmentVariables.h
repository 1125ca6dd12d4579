#pragma once

#include "apIProcessEnvironmentOperations.h"
#include "utObserverPtr.h"

// The environment variables, through the given operations, or those of the real process if they are null.
class VELPLATFORM_API apEnvironmentVariables {
 public:
  explicit apEnvironmentVariables(utObserverPtr<apIProcessEnvironmentOperations> operations = nullptr);

  apString get(const apString& name) const;
  int put(const apString& name, const apString& value);

  // The operations of the real process; they exist until the process ends.
  static apIProcessEnvironmentOperations* process();

 private:
  utObserverPtr<apIProcessEnvironmentOperations> operations_;
};
