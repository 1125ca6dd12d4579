#pragma once

#include <memory>

#include "apExport.h"
#include "utString.h"

// A setting: a key and a value of one type. To find the type of the value, use dynamic_cast to `coResource<T>`.
class VELPLATFORM_API coResourceBase {
 public:
  explicit coResourceBase(utString key) : key_(std::move(key)) {}
  virtual ~coResourceBase();

  const utString& key() const { return key_; }

  // The value as text, in this thread's locale (see coResourceValue.h).
  virtual utString text() const = 0;

  // A resource of the same key and type with the value parsed from `text`, or null if the text is not valid for the
  // type.
  virtual std::unique_ptr<coResourceBase> with_text(const utString& text) const = 0;

 private:
  utString key_;
};
