#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "apFrustrumChooser.h"
#include "apSystemPath.h"

apIFileOperations::~apIFileOperations() = default;

namespace {

std::string current_directory() {
  std::unique_ptr<char, decltype(&std::free)> name(getcwd(nullptr, 0), &std::free);
  return name ? name.get() : "";
}

// Removes ".", ".." and doubled separators from an absolute path.
std::string without_detours(std::string_view path) {
  std::vector<std::string_view> parts;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find('/'), path.size());
    const std::string_view part = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    if (part == "..") {
      if (!parts.empty()) parts.pop_back();
    } else if (!part.empty() && part != ".") {
      parts.push_back(part);
    }
  }
  std::string result;
  for (std::string_view part : parts) result.append("/").append(part);
  return result.empty() ? "/" : result;
}

class SystemFileOperations : public apIFileOperations {
 public:
  bool file_exists(const apPathName& path) const override {
    struct stat status;
    return stat(ap_system_path(path).c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
  }

  bool directory_exists(const apPathName& path) const override {
    struct stat status;
    return stat(ap_system_path(path).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
  }

  bool delete_file(const apPathName& path) const override { return unlink(ap_system_path(path).c_str()) == 0; }

  bool create_directory(const apPathName& path) const override {
    return mkdir(ap_system_path(path).c_str(), 0700) == 0;
  }

  apPathName full_path(const apPathName& path) const override {
    std::string name = ap_system_path(path);
    if (name.empty()) return {};
    if (name.front() != '/') {
      const std::string here = current_directory();
      if (here.empty()) return {};
      name = here + "/" + name;
    }
    std::wstring text;
    ap_decode_name(without_detours(name), path.encoding(), text);
    return apPathName(std::move(text), path.encoding());
  }
};

}  // namespace

const apIFileOperations* apFrustrumChooser::file_operations() const {
  static const auto* operations = new SystemFileOperations;
  return operations;
}
