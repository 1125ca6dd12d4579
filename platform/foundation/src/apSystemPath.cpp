#include "apSystemPath.h"

#include "apUtf8.h"

std::string ap_system_path(const apPathName& path) {
  std::string bytes;
  if (!ap_encode_utf8(path.string().view(), bytes) || bytes.find('\0') != bytes.npos) return {};
  return bytes;
}
