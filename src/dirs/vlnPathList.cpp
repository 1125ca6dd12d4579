#include "vlnPathList.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <unordered_set>

#include "apFileFinderEx.h"
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

// Depth of the retries of a file status that failed for a passing reason.
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
  if (!in_list(directory.c_str())) directories_.emplace_back(directory);
}

int vlnPathList::in_list(const char* path) {
  return std::find(directories_.begin(), directories_.end(), path) != directories_.end() ? 1 : 0;
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
  if (absolute_path(name)) return check_access(name) == wanted ? allocated(name) : nullptr;
  for (const utString& directory : directories_) {
    const std::string candidate = directory == "." ? std::string(name) : directory.str() + alt_slash_ + name;
    if (check_access(candidate.c_str()) == wanted) return allocated(candidate);
  }
  return nullptr;
}

void vlnPathList::search_by_extension(utStringcoDynArr& found, const char* extension) {
  const apIStringEncoding* encoding = apStringEncodingChooser().ut_encoding();
  const std::string ending = std::string(".") + extension;
  std::unordered_set<std::string> seen;
  for (const utString& directory : directories_) {
    apFileFinderEx entries{apPath(apPathName(encoding->to_apString(directory)))};
    while (++entries) {
      if (entries.is_directory()) continue;
      const utString name = encoding->to_utString(entries.file_name().string());
      const bool matches = *extension ? name.view().ends_with(ending) : name.find(".") == utString::npos;
      const utString path = directory + "/" + name;
      if (!matches || seen.contains(name.str()) || !is_regular_file(path.c_str())) continue;
      seen.insert(name.str());
      found.append(path);
    }
  }
}

char* vlnPathList::expand_list(const char* list, const utString& exe_dir) {
  constexpr std::string_view placeholder = "<exe_dir>";
  // One pass that does not look again at what it put in, should the directory hold the placeholder itself.
  std::string expanded;
  std::string_view rest = list;
  for (std::size_t at = rest.find(placeholder); at != rest.npos; at = rest.find(placeholder)) {
    expanded += rest.substr(0, at);
    expanded += exe_dir.view();
    rest.remove_prefix(at + placeholder.size());
  }
  expanded += rest;
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
