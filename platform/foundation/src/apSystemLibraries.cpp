#include <dlfcn.h>
#include <sys/mman.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <map>
#include <mutex>
#include <string>

#include "apElfFile.h"
#include "apILibraryLoaderOperations.h"
#include "apRegularFile.h"
#include "apSystemPath.h"

namespace {

utString last_failure() {
  const char* text = dlerror();
  return text ? text : "unknown reason";
}

// Identifies the content of a file without reading it.
struct FileState {
  dev_t device = 0;
  ino_t inode = 0;
  off_t size = 0;
  time_t seconds = 0;
  long nanoseconds = 0;

  bool operator==(const FileState&) const = default;
};

FileState state_of(const apRegularFile& file) {
  struct stat info {};
  fstat(file.descriptor(), &info);
  return {info.st_dev, info.st_ino, info.st_size, info.st_mtim.tv_sec, info.st_mtim.tv_nsec};
}

// A name under which the system's loader finds a copy of the file; empty if memory is exhausted. The descriptor stays
// open until the process ends, so that no later copy gets the same name.
std::string copy_in_memory(const apRegularFile& file) {
  const int copy = memfd_create("library", MFD_CLOEXEC);
  if (copy < 0) return "";
  off_t offset = 0;
  while (static_cast<std::uint64_t>(offset) < file.size()) {
    const auto left = static_cast<std::size_t>(file.size() - static_cast<std::uint64_t>(offset));
    if (sendfile(copy, file.descriptor(), &offset, left) > 0) continue;
    close(copy);
    return "";
  }
  return "/proc/self/fd/" + std::to_string(copy);
}

// The libraries that were opened by their paths. The system cannot unload a library that defines process-unique
// symbols. It then returns the old library for its name, whatever the file contains now.
class OpenedLibraries {
 public:
  // The name under which to open the file: its path, or the name of a copy if the system would return the old content
  // and that is no longer in use.
  std::string name_for(const std::string& path, const apRegularFile& file) {
    const std::lock_guard guard(lock_);
    const auto known = libraries_.find(path);
    if (known == libraries_.end()) return path;
    Library& library = known->second;
    if (library.name == path && !is_mapped(path)) return path;
    if (users_.contains(library.handle) || library.file == state_of(file)) return library.name;
    const std::string copy = copy_in_memory(file);
    if (!copy.empty()) library = {copy, nullptr, state_of(file)};
    return library.name;
  }

  void add_user(void* handle, const std::string& path, const std::string& name, const apRegularFile& file) {
    const std::lock_guard guard(lock_);
    if (++users_[handle] == 1) libraries_[path] = {name, handle, state_of(file)};
  }

  void remove_user(void* handle) {
    const std::lock_guard guard(lock_);
    if (--users_[handle] == 0) users_.erase(handle);
  }

 private:
  struct Library {
    std::string name;
    void* handle = nullptr;
    FileState file;
  };

  static bool is_mapped(const std::string& name) {
    void* library = dlopen(name.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (library) dlclose(library);
    return library != nullptr;
  }

  std::mutex lock_;
  std::map<std::string, Library> libraries_;  // by path
  std::map<void*, int> users_;                // by handle
};

OpenedLibraries& opened() {
  static auto* libraries = new OpenedLibraries;
  return *libraries;
}

void close_library(void* library) {
  opened().remove_user(library);
  dlclose(library);
}

class SystemLibraries : public apILibraryLoaderOperations {
 public:
  Handle open(const apPathName& path, Lifetime lifetime, apStatus& status) const override {
    Handle library(nullptr, close_library);
    const std::string name = ap_system_path(path);
    // The system's loader would search its own directories for a relative name.
    if (name.empty() || name.front() != '/') {
      status.set_failure("the path of a library must be absolute");
      return library;
    }
    // The system's loader would block on a pipe, and a truncated file would end the process.
    const apRegularFile file(name, status);
    if (!file.good()) return library;
    if (const utString missing = ap_missing_part_of_library(file); !missing.is_null()) {
      status.set_failure(missing);
      return library;
    }
    const std::string name_of_content = opened().name_for(name, file);
    const int flags = RTLD_NOW | RTLD_LOCAL | (lifetime == Lifetime::keep_mapped ? RTLD_NODELETE : 0);
    void* handle = dlopen(name_of_content.c_str(), flags);
    if (!handle) {
      status.set_failure(last_failure());
      return library;
    }
    opened().add_user(handle, name, name_of_content, file);
    library.reset(handle);
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
