#include "velabsAppInfo.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "apStringEncodingChooser.h"

velabsAppInfo::velabsAppInfo(utString product, utString version, utString application, utString user,
                             const utString& encoding)
    : product_(std::move(product)),
      version_(std::move(version)),
      application_(std::move(application)),
      user_(std::move(user)),
      encoding_(apStringEncodingChooser().named(encoding)) {}

utString velabsAppInfo::schema_path(const utString& name) const {
  utString path("");
  std::string_view rest = installation_dir_.view();
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(';'), rest.size());
    const std::string_view directory = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (directory.empty()) continue;
    if (!path.empty()) path += ";";
    path += directory;
    path += "/";
    path += name;
  }
  return path;
}
