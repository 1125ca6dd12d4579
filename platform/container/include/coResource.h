#pragma once

#include <memory>
#include <utility>

#include "coResourceBase.h"
#include "coResourceValue.h"

// A resource whose value has type `T`: `utString`, `double`, `int`, `utBool` or one of the enumerated option types.
template <typename T>
class coResource : public coResourceBase {
 public:
  coResource(utString key, T value) : coResourceBase(std::move(key)), value_(std::move(value)) {}

  const T& value() const { return value_; }
  utString text() const override { return co_value_to_text(value_); }
  std::unique_ptr<coResourceBase> with_text(const utString& text) const override {
    T value{};
    if (!co_value_from_text(text, value)) return nullptr;
    return std::make_unique<coResource>(key(), std::move(value));
  }

 private:
  T value_;
};
