#include "vlnPathList.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "apFileFinderEx.h"
#include "apStringCompareInsensitive.h"
#include "apStringEncodingChooser.h"

namespace {

char* allocated(std::string_view text) {
  auto* copy = static_cast<char*>(std::malloc(text.size() + 1));
  if (!copy) return nullptr;
  std::memcpy(copy, text.data(), text.size());
  copy[text.size()] = '\0';
  return copy;
}

bool is_letter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// Recursion depth for retries when reading a file's status fails temporarily.
constexpr int retry_limit = 15;
int retry_depth = 0;

vlnPathListError error_of(int code) {
  switch (code) {
    case ENOENT:
    case EBADF:
    case EFAULT:
    case ENOTDIR:
      return vlnPathNotFound;
    case ENAMETOOLONG:
      return vlnPathNameTooLong;
    case EACCES:
      return vlnPathNoPermission;
    case EMLINK:
    case ELOOP:
      return vlnPathTooManyLinks;
    default:
      return vlnPathError;
  }
}

bool is_regular_file(const char* path) {
  struct stat status {};
  return stat(path, &status) == 0 && S_ISREG(status.st_mode);
}

// Whether the whole text matches a pattern in which "*" matches any characters and "?" one.
bool matches(std::wstring_view text, std::wstring_view pattern) {
  std::size_t at = 0, in_pattern = 0;
  std::size_t star = pattern.npos, star_end = 0;  // the last "*", and where its match ends so far
  while (at < text.size()) {
    if (in_pattern < pattern.size() && pattern[in_pattern] == L'*') {
      star = in_pattern++;
      star_end = at;
    } else if (in_pattern < pattern.size() && (pattern[in_pattern] == L'?' || pattern[in_pattern] == text[at])) {
      ++in_pattern;
      ++at;
    } else if (star != pattern.npos) {
      in_pattern = star + 1;
      at = ++star_end;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of(L'*', in_pattern) == pattern.npos;
}

bool is_passing(int code) {
  return code == EINTR || code == ENXIO || code == ENODEV || code == EMFILE;
}

}  // namespace

vlnPathList::vlnPathList(const char* list) {
  add_list(list);
}

vlnPathList::~vlnPathList() = default;

void vlnPathList::add_list(const char* list) {
  if (!list) return;
  std::string_view rest = list;
  while (!rest.empty()) {
    const std::size_t end = rest.find(list_separator_);
    const std::string piece(rest.substr(0, end));
    if (!piece.empty()) add(piece.c_str());
    rest = end == rest.npos ? std::string_view() : rest.substr(end + 1);
  }
}

void vlnPathList::add(const char* path) {
  std::string directory = path;
  if (directory.starts_with('~')) {
    const char* home = std::getenv("HOME");
    if (!home) return;
    directory.replace(0, 1, home);
  }
  if (listed_.insert(directory).second) directories_.emplace_back(std::move(directory));
}

int vlnPathList::in_list(const char* path) {
  return path && listed_.contains(path) ? 1 : 0;
}

vlnPathListError vlnPathList::check_access(const char* path) {
  std::string tested = path;
  if (tested.ends_with(path_slash_) || tested.ends_with(alt_slash_)) tested.pop_back();

  struct stat status {};
  if (stat(tested.c_str(), &status) == 0) {
    if (S_ISREG(status.st_mode) || S_ISCHR(status.st_mode)) return vlnPathIsFile;
    return S_ISDIR(status.st_mode) ? vlnPathIsDirectory : vlnPathNotFileOrDir;
  }
  const int code = errno;
  if (!is_passing(code)) return error_of(code);
  if (retry_depth >= retry_limit) return vlnPathRetryLimit;
  ++retry_depth;
  const vlnPathListError again = check_access(path);
  --retry_depth;
  return again;
}

int vlnPathList::absolute_path(const char* path) {
  std::string normalised = path;
  path_verify(normalised.data(), static_cast<int>(normalised.size()));
  std::string_view rest = normalised;
  if (!rest.empty() && is_letter(rest.front())) {
    if (!rest.substr(1).starts_with(':')) return 0;
    rest.remove_prefix(2);
  }
  return rest.starts_with(path_slash_) || rest.starts_with('~') ? 1 : 0;
}

char* vlnPathList::search(const char* name) {
  return search(name, vlnPathIsFile);
}

char* vlnPathList::search_dir(const char* name) {
  return search(name, vlnPathIsDirectory);
}

char* vlnPathList::search(const char* name, vlnPathListError wanted) {
  if (!name) return nullptr;
  if (absolute_path(name)) return check_access(name) == wanted ? allocated(name) : nullptr;
  for (const utString& directory : directories_) {
    const std::string candidate = directory == "." ? std::string(name) : directory.str() + alt_slash_ + name;
    if (check_access(candidate.c_str()) == wanted) return allocated(candidate);
  }
  return nullptr;
}

void vlnPathList::search_by_extension(utStringcoDynArr& found, const char* extension) {
  if (!extension) return;
  const apIStringEncoding* encoding = apStringEncodingChooser().ut_encoding();
  const std::wstring pattern = ap_fold((apString(L"*.") + encoding->to_apString(extension)).view());
  std::unordered_set<std::string> seen;
  for (const utString& directory : directories_) {
    apFileFinderEx entries{apPath(apPathName(encoding->to_apString(directory)))};
    while (++entries) {
      if (entries.is_directory()) continue;
      const apFileName entry = entries.file_name();
      if (*extension ? !matches(ap_fold(entry.string().view()), pattern) : entry.has_extension()) continue;
      const utString name = encoding->to_utString(entry.string());
      const utString path = directory + "/" + name;
      if (seen.contains(name.str()) || !is_regular_file(path.c_str())) continue;
      seen.insert(name.str());
      found.append(path);
    }
  }
}

char* vlnPathList::expand_list(const char* list, const utString& exe_dir) {
  constexpr std::string_view placeholder = "<exe_dir>";
  const std::string_view text = list ? list : "";
  // Limits the replacements. Only an `exe_dir` that contains the placeholder could expand for ever, and it is not
  // searched again. The list's own text allows fewer replacements than it has characters.
  std::size_t rescans_left = exe_dir.find(placeholder) == utString::npos ? text.size() : 0;
  std::string expanded;
  std::size_t final_length = 0;  // how much of `expanded` is not searched again
  std::vector<std::string_view> to_read{text};
  while (!to_read.empty()) {
    std::string_view& next = to_read.back();
    if (next.empty()) {
      to_read.pop_back();
      continue;
    }
    expanded += next.front();
    next.remove_prefix(1);
    if (!std::string_view(expanded).substr(final_length).ends_with(placeholder)) continue;

    expanded.resize(expanded.size() - placeholder.size());
    if (rescans_left > 0) {
      --rescans_left;
      to_read.push_back(exe_dir.view());
    } else {
      expanded += exe_dir.view();
      final_length = expanded.size();
    }
  }
  return allocated(expanded);
}

const char* vlnPathList::path_verify(char* path, int length) {
  std::replace(path, path + length, alt_slash_, path_slash_);
  return path;
}

int vlnPathList::valid_colon_check(const char* list) {
  const std::string_view text = list;
  for (std::size_t at = text.find(':'); at != text.npos; at = text.find(':', at + 1)) {
    if (at == 0 || !is_letter(text[at - 1])) return 0;
    if (at > 1 && text[at - 2] != list_separator_) return 0;
  }
  return 1;
}
