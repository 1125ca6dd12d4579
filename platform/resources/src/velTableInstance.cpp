#include "velTableInstance.h"

#include <string>
#include <utility>

#include "velResourceTable.h"
#include "vluFileHelpers.h"

namespace {

utString reason_against_key(const utString& key) {
  const utString reason = utString("the key ") + key + " is not known";
  std::string spelled = key.str();
  for (char& c : spelled) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    if (c == '-') c = '_';
  }
  return vel_resource_table_inquire().find(utString(spelled)) ? reason + "; it is spelled " + spelled : reason;
}

utString reason_against_value(const utString& key, const utString& value) {
  const utString reason = utString("\"") + value + "\" is no value of " + key;
  const bool holds_comment = value.view().find('#') != std::string_view::npos;
  return holds_comment ? reason + "; comments stand on lines of their own" : reason;
}

}  // namespace

void velTableInstance::initialise(const utString& path) {
  apStatus status;
  const bool exists = vlu_check_file_exists(path) != vluFILE_NOT_FOUND;
  initialise(path, exists ? velResourceFile::read(path, status) : velResourceFile());
  if (!status.ok()) problems_.push_back(path + ": " + status.failure());
}

void velTableInstance::initialise(const utString& path, const velResourceFile& file) {
  values_.clear();
  keys_.clear();
  problems_.clear();
  auto report = [&](int line, const utString& reason) {
    problems_.push_back(path + ", line " + std::to_string(line) + ": " + reason);
  };
  for (const auto& problem : file.problems()) report(problem.line, problem.reason);
  for (const auto& entry : file.entries()) {
    if (add_resource(entry.key, entry.value)) continue;
    if (vel_resource_table_inquire().find(entry.key)) {
      report(entry.line, reason_against_value(entry.key, entry.value));
    } else {
      report(entry.line, reason_against_key(entry.key));
    }
  }
}

int velTableInstance::add_resource(const utString& key, const utString& text) {
  const coResourceBase* known = vel_resource_table_inquire().find(key);
  if (!known) return 0;
  std::shared_ptr<const coResourceBase> resource = known->with_text(text);
  if (!resource) return 0;
  if (values_.insert_or_assign(key, std::move(resource)).second) keys_.push_back(key);
  return 1;
}

const coResourceBase* velTableInstance::find(const utString& key) const {
  for (const velTableInstance* table = this; table; table = table->parent_) {
    auto entry = table->values_.find(key);
    if (entry != table->values_.end()) return entry->second.get();
  }
  return vel_resource_table_inquire().find(key);
}
