#include "v2vTranslatorLoader.h"

#include <string>
#include <utility>

#include "v2vGuard.h"

namespace {

template <typename Function>
Function entry(const apDynamicLibrary& library, const char* name) {
  apStatus ignored;
  return reinterpret_cast<Function>(library.proc_address(name, ignored));
}

// Why a library cannot be used by this program; null if it can.
utString reason_against_interface(const apDynamicLibrary& library) {
  const auto number = entry<int (*)()>(library, "velabs_interface_number");
  if (!number) return "it is no translator library: it has no velabs_interface_number";
  int built_for = 0;
  utString failure;
  if (!v2v_guarded([&] { built_for = number(); }, failure)) return failure;
  if (built_for == velabs_interface) return {};
  return utString("built for interface ") + std::to_string(built_for) + ", this program speaks " +
         std::to_string(velabs_interface);
}

}  // namespace

v2vTranslatorLoader::v2vTranslatorLoader(utObserverPtr<const apILibraryLoaderOperations> operations)
    : libraries_(operations) {}

std::unique_ptr<v2vTranslatorLibrary> v2vTranslatorLoader::load_library_path(const apPathName& path) const {
  auto refuse = [&](const utString& reason) {
    failures_.put(path.string(), reason);
    return nullptr;
  };
  apStatus status;
  auto library = libraries_.load(path, status);
  if (!library) return refuse(status.failure());
  const utString reason = reason_against_interface(*library);
  if (!reason.is_null()) return refuse(reason);

  const auto read = entry<velabsReadWrapper>(*library, "velabs_read_wrapper");
  const auto write = entry<velabsWriteWrapper>(*library, "velabs_write_wrapper");
  if (!read && !write) return refuse("it is no translator library: it neither reads nor writes");
  failures_.remove(path.string());
  return std::make_unique<v2vTranslatorLibrary>(std::move(library), read, write);
}

utString v2vTranslatorLoader::failure(const apPathName& path) const {
  return failures_.read(path.string());
}
