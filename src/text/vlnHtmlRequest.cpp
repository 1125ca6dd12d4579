#include "vlnHtmlRequest.h"

#include <cctype>
#include <cstring>

const utString vlnINTERNET_UTEST_SECURITY_FAILURE("INTERNET_UTEST_SECURITY_FAILURE");
const utString vlnINTERNET_UTEST_CONNECTION_FAILURE("INTERNET_UTEST_CONNECTION_FAILURE");

namespace {

constexpr char hexadecimal[] = "0123456789abcdef";

}  // namespace

void vlnHtmlRequest::add_field(const utString& name, const utString& value) {
  buffer_ += code(name) + "=" + code(value) + "&";
}

utString vlnHtmlRequest::code(const utString& text) {
  std::string coded;
  for (const char c : text.view()) {
    const auto byte = static_cast<unsigned char>(c);
    if (std::isalnum(byte)) {
      coded += c;
    } else {
      coded += '%';
      coded += hexadecimal[byte / 16];
      coded += hexadecimal[byte % 16];
    }
  }
  return coded;
}

utString vlnHtmlRequest::uncode(const utString& text) {
  std::string plain;
  for (std::size_t i = 0; i < text.length(); ++i) {
    const bool coded = text[i] == '%' && i + 2 < text.length() && unhex(text[i + 1]) >= 0 && unhex(text[i + 2]) >= 0;
    if (coded) {
      plain += static_cast<char>(16 * unhex(text[i + 1]) + unhex(text[i + 2]));
      i += 2;
    } else {
      plain += text[i] == '+' ? ' ' : text[i];
    }
  }
  return plain;
}

int vlnHtmlRequest::unhex(char digit) {
  const int folded = std::tolower(static_cast<unsigned char>(digit));
  const char* found = folded ? std::strchr(hexadecimal, folded) : nullptr;
  return found ? static_cast<int>(found - hexadecimal) : -1;
}

utString vlnHtmlRequest::get_token(const char*& position, const char* delimiters) {
  const std::size_t length = std::strcspn(position, delimiters);
  const utString token(std::string(position, length));
  position += length;
  if (*position) ++position;
  return token;
}

utString vlnHtmlRequest::get_field(const char* name) const {
  const char* position = buffer_.c_str();
  while (*position) {
    const utString key = get_token(position, "=\n");
    if (!*position) break;
    const utString value = get_token(position, "&");
    if (key == name) return value;
  }
  return "";
}
