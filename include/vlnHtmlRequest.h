#pragma once

#include "utString.h"
#include "vlnExport.h"

// The names of two kinds of failure of an internet request.
VLN_API extern const utString vlnINTERNET_UTEST_SECURITY_FAILURE;
VLN_API extern const utString vlnINTERNET_UTEST_CONNECTION_FAILURE;

// A request in the form encoding: name=value fields, each followed by "&". Names and values are percent-encoded as they
// are added: every byte that is not a letter or digit becomes "%" and two lower-case hexadecimal digits.
class VLN_API vlnHtmlRequest {
 public:
  vlnHtmlRequest() = default;
  // `buffer` is a request that is already encoded.
  explicit vlnHtmlRequest(const utString& buffer) : buffer_(buffer) {}
  vlnHtmlRequest(const vlnHtmlRequest& other) { become(other); }
  vlnHtmlRequest& operator=(const vlnHtmlRequest& other) {
    become(other);
    return *this;
  }

  void add_field(const utString& name, const utString& value);
  const utString& buffer() const { return buffer_; }

  // The value of the first field with that name, or "". The name must be given encoded; the value is returned encoded.
  utString get_field(const char* name) const;

 protected:
  void become(const vlnHtmlRequest& other) { buffer_ = other.buffer_; }

  static utString code(const utString& text);
  // Decodes a text. "+" becomes a space. A "%" that is not followed by two hexadecimal digits is copied.
  static utString uncode(const utString& text);

 private:
  static int unhex(char digit);
  static utString get_token(const char*& position, const char* delimiters);

  utString buffer_ = "";
};
