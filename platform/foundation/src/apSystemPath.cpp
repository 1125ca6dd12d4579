#include "apSystemPath.h"

#include "apIStringEncoding.h"
#include "apUtf8.h"

std::string ap_system_path(const apPathName& path) {
  const std::wstring_view text = path.string().view();
  std::string bytes;
  apStatus status;
  if (path.encoding()) path.encoding()->encode(text, bytes, status);
  if (!path.encoding() || !status.ok()) {
    bytes.clear();
    if (!ap_encode_utf8(text, bytes)) return {};
  }
  return bytes.find('\0') == bytes.npos ? bytes : std::string();
}

void ap_decode_name(std::string_view name, const apIStringEncoding* encoding, std::wstring& text) {
  const std::size_t before = text.size();
  apStatus status;
  if (encoding) encoding->decode(name, text, status);
  if (encoding && status.ok()) return;
  text.resize(before);
  ap_decode_utf8(name, text);
}
