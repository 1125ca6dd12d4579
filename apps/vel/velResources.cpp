#include "velResources.h"

#include <algorithm>
#include <cstdlib>

#include "velKeyValues.h"
#include "velMessages.h"
#include "velResourceTable.h"
#include "vluFileHelpers.h"

namespace {

// The line number of a problem "FILE, line N: reason"; 0 for a problem of the whole file.
long line_of(const std::string& problem, const utString& path) {
  const std::string start = path.str() + ", line ";
  return problem.starts_with(start) ? std::strtol(problem.c_str() + start.size(), nullptr, 10) : 0;
}

}  // namespace

velResources::velResources(const utString& path) {
  if (vlu_check_file_exists(path) == vluFILE_NOT_FOUND) return;
  apStatus status;
  file = velResourceFile::read(path, status);
  if (!status.ok()) problems.push_back((path + ": " + status.failure()).str());
  values.initialise(path, file);
  for (const utString& problem : values.problems()) problems.push_back(problem.str());
  pass_over_senseless_values(path);
  std::stable_sort(problems.begin(), problems.end(),
                   [&](const std::string& a, const std::string& b) { return line_of(a, path) < line_of(b, path); });
}

void velResources::pass_over_senseless_values(const utString& path) {
  for (const auto& [line, key, value, description] : file.entries()) {
    const coResourceBase* known = vel_resource_table_inquire().find(key);
    if (!known || !known->with_text(value)) continue;
    const std::string refusal = vel_refusal(key, value);
    if (refusal.empty()) continue;
    problems.push_back(
        vel_text(velMSG_BAD_VALUE_IN_FILE, {path.view(), std::to_string(line), value.view(), key.view(), refusal}));
    values.add_resource(key, known->text());
  }
}
