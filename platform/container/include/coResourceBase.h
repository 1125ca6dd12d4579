#pragma once

#include <memory>

#include "apExport.h"
#include "utString.h"

// A setting: a key and a value of one type. The class of the value is told by a checked downcast to `coResource<T>`.
class VELPLATFORM_API coResourceBase {
 public:
  explicit coResourceBase(utString key) : key_(std::move(key)) {}
  virtual ~coResourceBase();

  const utString& key() const { return key_; }

  // The value as text, in the locale that is in force for this thread (see coResourceValue.h).
  virtual utString text() const = 0;

  // A resource of the same key and type with the value that `text` says, or null when the type does not know it.
  virtual std::unique_ptr<coResourceBase> with_text(const utString& text) const = 0;

 private:
  utString key_;
};
