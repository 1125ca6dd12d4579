#pragma once

#include "apIStringEncoding.h"

// The default encoding. Every byte is preserved: a byte that is not part of valid UTF-8 becomes U+DC80..U+DCFF and is
// encoded as that byte again, so every file name can be represented. Encoding fails only for code points outside
// Unicode and for other surrogates.
class VELPLATFORM_API apUtf8Encoding : public apIStringEncoding {
 public:
  void encode(std::wstring_view text, std::string& bytes, apStatus& status) const override;
  void decode(std::string_view bytes, std::wstring& text, apStatus& status) const override;
};

// One byte per character, U+0000..U+00FF. Every byte decodes; encoding fails for higher characters.
class VELPLATFORM_API apLatin1Encoding : public apIStringEncoding {
 public:
  void encode(std::wstring_view text, std::string& bytes, apStatus& status) const override;
  void decode(std::string_view bytes, std::wstring& text, apStatus& status) const override;
};

// U+0000..U+007F; both directions fail for other characters.
class VELPLATFORM_API apAsciiEncoding : public apIStringEncoding {
 public:
  void encode(std::wstring_view text, std::string& bytes, apStatus& status) const override;
  void decode(std::string_view bytes, std::wstring& text, apStatus& status) const override;
};
