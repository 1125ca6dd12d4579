#pragma once

#include "utString.h"
#include "vlnExport.h"

// The names of two ways in which an internet request fails.
VLN_API extern const utString vlnINTERNET_UTEST_SECURITY_FAILURE;
VLN_API extern const utString vlnINTERNET_UTEST_CONNECTION_FAILURE;

// A request in the manner of a form: name=value fields, each with "&" behind it. Names and values are percent-encoded
// as they are added: what is neither letter nor digit becomes "%" and two lower-case hexadecimal digits.
class VLN_API vlnHtmlRequest {
 public:
  vlnHtmlRequest() = default;
  // Taken as a request that is encoded already.
  explicit vlnHtmlRequest(const utString& buffer) : buffer_(buffer) {}
  vlnHtmlRequest(const vlnHtmlRequest& other) { become(other); }
  vlnHtmlRequest& operator=(const vlnHtmlRequest& other) {
    become(other);
    return *this;
  }

  void add_field(const utString& name, const utString& value);
  const utString& buffer() const { return buffer_; }

  // The value of the first field of that name, or "". Both are in their encoded form: the name must be given encoded,
  // the value comes back as it stands.
  utString get_field(const char* name) const;

 protected:
  void become(const vlnHtmlRequest& other) { buffer_ = other.buffer_; }

  static utString code(const utString& text);
  // "+" becomes a blank. A "%" without two hexadecimal digits behind it is copied.
  static utString uncode(const utString& text);

 private:
  static int unhex(char digit);
  static utString get_token(const char*& position, const char* delimiters);

  utString buffer_ = "";
};
