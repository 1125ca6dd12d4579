#include "apSplitPath.h"

apSplitPath::apSplitPath(const apPathName& path) {
  const apString& text = path.string();
  auto is_letter = [](wchar_t c) { return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z'); };
  const bool has_drive = text.length() >= 2 && text[1] == L':' && is_letter(text[0]);
  drive_ = text.substr(0, has_drive ? 2 : 0);

  const apString rest = text.substr(drive_.length());
  const std::size_t separator = rest.view().find_last_of(L"/\\");
  const std::size_t name_start = separator == apString::npos ? 0 : separator + 1;
  directory_ = rest.substr(0, name_start);

  const apString last = rest.substr(name_start);
  const std::size_t dot = last.view().rfind(L'.');
  name_ = last.substr(0, dot);
  extension_ = last.substr(dot);
}
