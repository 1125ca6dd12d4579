#pragma once

#include <string>
#include <string_view>

// The directory in which a file stands, as the system takes it; never empty.
std::string vlt_directory_of(const std::string& file);

// The regular file that a relative name means, as a path without links, when it is there and inside the directory; else
// empty. Neither ".." nor a link leads out of it.
std::string vlt_path_beside(const std::string& directory, std::string_view name);
