#pragma once

#include <string>
#include <string_view>

// The directory of a file, as the system resolves it; never empty.
std::string vlt_directory_of(const std::string& file);

// The path without links of the regular file with this relative name. Empty when there is no such file or it is
// outside the directory; neither ".." nor a link may lead out of it.
std::string vlt_path_beside(const std::string& directory, std::string_view name);
