#include "vlnSearchPath.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "apFileFinderEx.h"

namespace {

constexpr wchar_t separator[] = L";";
constexpr std::wstring_view exe_placeholder = L"<exe_dir>";

bool holds_separator(const apFileName& name) {
  return name.string().view().find_first_of(L"/\\") != apString::npos;
}

// The entry of one directory that matches `name`: the exactly equal one, else the first that is equal ignoring case.
bool listed(const apPathName& directory, const apFileName& name, apFileName& entry) {
  apFileFinderEx entries{apPath(directory)};
  bool found = false;
  while (++entries) {
    const apFileName candidate = entries.file_name();
    if (!(candidate == name)) continue;
    const bool exact = candidate.string() == name.string();
    if (exact || !found) entry = candidate;
    found = true;
    if (exact) break;
  }
  return found;
}

}  // namespace

vlnSearchPath::vlnSearchPath(apPathName directory) : directories_{std::move(directory)}, valid_(true) {}

vlnSearchPath::vlnSearchPath(apString path, const apIStringEncoding* encoding) : valid_(true) {
  std::wstring_view rest = path.view();
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(separator), rest.size());
    directories_.emplace_back(std::wstring(rest.substr(0, end)), encoding);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
}

vlnSearchPath::~vlnSearchPath() = default;

apPathName vlnSearchPath::search(apFileName name) const {
  if (holds_separator(name)) return {};
  apFileName entry;
  for (const apPathName& directory : directories_) {
    if (listed(directory, name, entry)) return apPathName::adjoin(directory, entry);
  }
  return {};
}

vlnSearchPath vlnSearchPath::append(const vlnSearchPath& other) const {
  vlnSearchPath joined = *this;
  joined.directories_.insert(joined.directories_.end(), other.directories_.begin(), other.directories_.end());
  joined.valid_ = valid_ && other.valid_;
  return joined;
}

bool vlnSearchPath::compare(const vlnSearchPath& other) const {
  return directories_ == other.directories_;
}

apPathName vlnSearchPath::directory_path(bool& not_single) const {
  not_single = directories_.size() != 1;
  return not_single ? apPathName() : directories_.front();
}

vlnSearchPath vlnSearchPath::exe_substitute(const apPathName& exe_dir) const {
  vlnSearchPath result = *this;
  for (apPathName& directory : result.directories_) {
    std::wstring_view rest = directory.string().view();
    if (!rest.starts_with(exe_placeholder)) continue;
    rest.remove_prefix(exe_placeholder.size());
    while (rest.starts_with(L'/')) rest.remove_prefix(1);
    directory = exe_dir.combine(apPathName(std::wstring(rest)));
  }
  return result;
}

vlnSearchPath vlnSearchPath::substitute(const apString& from, const apString& to) const {
  vlnSearchPath result = *this;
  for (apPathName& directory : result.directories_) {
    directory = apPathName(directory.string().replace_all(from, to), directory.encoding());
  }
  return result;
}

apString vlnSearchPath::path_string() const {
  std::wstring joined;
  for (const apPathName& directory : directories_) {
    if (&directory != &directories_.front()) joined += separator;
    joined += directory.string().view();
  }
  return joined;
}

utString vlnSearchPath::ut_path_string(const apIStringEncoding* encoding) const {
  return encoding ? encoding->to_utString(path_string()) : utString();
}
