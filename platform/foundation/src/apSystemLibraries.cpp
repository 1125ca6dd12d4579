#include <dlfcn.h>
#include <sys/stat.h>

#include <string>

#include "apILibraryLoaderOperations.h"
#include "apSystemPath.h"

namespace {

utString last_failure() {
  const char* text = dlerror();
  return text ? text : "unknown reason";
}

void close(void* library) {
  dlclose(library);
}

class SystemLibraries : public apILibraryLoaderOperations {
 public:
  Handle open(const apPathName& path, Lifetime lifetime, apStatus& status) const override {
    Handle library(nullptr, close);
    const std::string name = ap_system_path(path);
    // The system would look for a relative name in places of its own.
    if (name.empty() || name.front() != '/') {
      status.set_failure("the path of a library must be absolute");
      return library;
    }
    // The system's loader would wait for whoever writes to a pipe.
    struct stat info {};
    if (stat(name.c_str(), &info) == 0 && !S_ISREG(info.st_mode)) {
      status.set_failure(S_ISDIR(info.st_mode) ? "it is a directory" : "it is not a regular file");
      return library;
    }
    const int flags = RTLD_NOW | RTLD_LOCAL | (lifetime == Lifetime::keep_mapped ? RTLD_NODELETE : 0);
    library.reset(dlopen(name.c_str(), flags));
    if (!library) status.set_failure(last_failure());
    return library;
  }

  void* symbol(void* library, const char* name, apStatus& status) const override {
    dlerror();
    void* address = dlsym(library, name);
    if (!address) status.set_failure(last_failure());
    return address;
  }
};

}  // namespace

const apILibraryLoaderOperations* apILibraryLoaderOperations::system() {
  static const auto* operations = new SystemLibraries;
  return operations;
}
