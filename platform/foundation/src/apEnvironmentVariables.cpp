#include "apEnvironmentVariables.h"

#include <cstdlib>
#include <string>

#include "apUtf8.h"

apIProcessEnvironmentOperations::~apIProcessEnvironmentOperations() = default;

namespace {

// The bytes of a text; false if they cannot be the value of a variable.
bool to_bytes(const apString& text, std::string& bytes) {
  return ap_encode_utf8(text.view(), bytes) && bytes.find('\0') == bytes.npos;
}

bool is_name(const std::string& name) {
  return !name.empty() && name.find('=') == name.npos;
}

class ProcessEnvironment : public apIProcessEnvironmentOperations {
 public:
  apString get(const apString& name) const override {
    std::string bytes;
    if (!to_bytes(name, bytes) || !is_name(bytes)) return {};
    return apString(std::getenv(bytes.c_str()));
  }

  int put(const apString& name, const apString& value) override {
    std::string name_bytes;
    std::string value_bytes;
    if (!to_bytes(name, name_bytes) || !to_bytes(value, value_bytes) || !is_name(name_bytes)) return 0;
    return setenv(name_bytes.c_str(), value_bytes.c_str(), 1) == 0 ? 1 : 0;
  }
};

}  // namespace

apEnvironmentVariables::apEnvironmentVariables(utObserverPtr<apIProcessEnvironmentOperations> operations)
    : operations_(operations ? operations : process()) {}

apString apEnvironmentVariables::get(const apString& name) const {
  return operations_->get(name);
}

int apEnvironmentVariables::put(const apString& name, const apString& value) {
  return operations_->put(name, value);
}

apIProcessEnvironmentOperations* apEnvironmentVariables::process() {
  static auto* environment = new ProcessEnvironment;
  return environment;
}
