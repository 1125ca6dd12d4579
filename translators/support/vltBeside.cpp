#include "vltBeside.h"

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

std::string vlt_directory_of(const std::string& file) {
  const std::string directory = fs::path(file).parent_path().string();
  return directory.empty() ? "." : directory;
}

std::string vlt_path_beside(const std::string& directory, std::string_view name) {
  const fs::path relative(name);
  if (relative.empty() || relative.is_absolute() || name.find('\0') != name.npos) return {};
  std::error_code error;
  const fs::path base = fs::canonical(directory, error);
  if (error) return {};
  const fs::path target = fs::canonical(base / relative, error);
  if (error) return {};
  const bool inside = std::mismatch(base.begin(), base.end(), target.begin(), target.end()).first == base.end();
  return inside && fs::is_regular_file(target, error) ? target.string() : std::string();
}
