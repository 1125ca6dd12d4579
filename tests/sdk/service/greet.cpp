#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "vlnServices.h"

namespace {

bool is_mapped(const std::string& library) {
  std::ifstream maps("/proc/self/maps");
  const std::string text{std::istreambuf_iterator<char>(maps), {}};
  return text.find(library) != text.npos;
}

}  // namespace

// Prints what the service says, and whether its library is in the process before and after its removal.
int main() {
  apDynamicLibraryLoader loader;
  velabsAppInfo app_info("greet", "1", "greet", "", "UTF-8");
  auto manager = std::make_unique<vlnServiceDllManager>(vlnSearchPath(apString(SERVICES)), &loader, &app_info);
  vlnServices services;
  services.set_dll_manager(manager, &app_info);
  vluBaseServicePtr found;
  if (!services.service(vluServiceKey("greeting"), found)) return 1;
  const std::string greeting = found.as<const char>();
  const bool before = is_mapped("/greetingsvc.dll");
  services.remove_service(vluServiceKey("greeting"));
  std::printf("%s %d %d\n", greeting.c_str(), before, is_mapped("/greetingsvc.dll"));
}
