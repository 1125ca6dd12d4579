#include "apStringEncodingChooser.h"

#include "apStringEncodings.h"

const apIStringEncoding* apStringEncodingChooser::ut_encoding() const {
  // Never destroyed, because code that runs at the end of the process may use it.
  static const auto* encoding = new apUtf8Encoding;
  return encoding;
}

const apIStringEncoding* apStringEncodingChooser::named(const utString& name) const {
  static const auto* latin1 = new apLatin1Encoding;
  static const auto* ascii = new apAsciiEncoding;
  if (name.case_compare("ISO-8859-1")) return latin1;
  if (name.case_compare("ASCII")) return ascii;
  return ut_encoding();
}
