#include "apIStringEncoding.h"

apIStringEncoding::~apIStringEncoding() = default;

utString apIStringEncoding::to_utString(const apString& text, apStatus& status) const {
  if (text.invalid()) return {};
  apStatus own;
  std::string bytes;
  encode(text.view(), bytes, own);
  if (own.ok()) return bytes;
  status.set_failure(own.failure());
  return {};
}

apString apIStringEncoding::to_apString(const utString& text, apStatus& status) const {
  apStatus own;
  std::wstring wide;
  decode(text.view(), wide, own);
  if (own.ok()) return wide;
  status.set_failure(own.failure());
  return {};
}

utString apIStringEncoding::to_utString(const apString& text) const {
  apStatus ignored;
  return to_utString(text, ignored);
}

apString apIStringEncoding::to_apString(const utString& text) const {
  apStatus ignored;
  return to_apString(text, ignored);
}
