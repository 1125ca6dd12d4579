#pragma once

#include "apIStringEncoding.h"

// The default encoding. It loses nothing: a byte that is not part of valid UTF-8 becomes U+DC80..U+DCFF and comes back
// as that byte, so every file name survives. Encoding fails only on code points outside Unicode and on other
// surrogates.
class VELPLATFORM_API apUtf8Encoding : public apIStringEncoding {
 public:
  void encode(std::wstring_view text, std::string& bytes, apStatus& status) const override;
  void decode(std::string_view bytes, std::wstring& text, apStatus& status) const override;
};

// One byte per character, U+0000..U+00FF. Every byte decodes; encoding fails on anything above.
class VELPLATFORM_API apLatin1Encoding : public apIStringEncoding {
 public:
  void encode(std::wstring_view text, std::string& bytes, apStatus& status) const override;
  void decode(std::string_view bytes, std::wstring& text, apStatus& status) const override;
};

// U+0000..U+007F; both directions fail on anything else.
class VELPLATFORM_API apAsciiEncoding : public apIStringEncoding {
 public:
  void encode(std::wstring_view text, std::string& bytes, apStatus& status) const override;
  void decode(std::string_view bytes, std::wstring& text, apStatus& status) const override;
};
