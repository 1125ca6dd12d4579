#include "velDesktop.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string_view>

namespace {

constexpr char opener[] = "xdg-open";

bool is_set(const char* variable) {
  const char* value = std::getenv(variable);
  return value && *value;
}

// Empty when no directory of PATH has it.
std::string path_of_opener() {
  const char* variable = std::getenv("PATH");
  std::string_view rest = variable ? variable : "";
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(':'), rest.size());
    const std::string path = std::string(rest.substr(0, end)) + "/" + opener;
    if (end > 0 && access(path.c_str(), X_OK) == 0) return path;
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return "";
}

[[noreturn]] void run(const std::string& program, const std::string& file) {
  setsid();
  const int nothing = open("/dev/null", O_RDWR);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nothing, stream);
  execl(program.c_str(), opener, file.c_str(), static_cast<char*>(nullptr));
  _exit(127);
}

}  // namespace

void vel_open_on_desktop(const std::string& file) {
  if (!is_set("DISPLAY") && !is_set("WAYLAND_DISPLAY")) return;
  if (isatty(STDOUT_FILENO) == 0) return;
  const std::string program = path_of_opener();
  if (program.empty()) return;
  // An absolute path cannot be taken for an option and is valid in any working directory.
  std::error_code failed;
  const std::string name = std::filesystem::absolute(file, failed).string();
  if (failed) return;
  // A double fork: this process waits only for the first child, which ends at once.
  const pid_t child = fork();
  if (child == 0) {
    if (fork() == 0) run(program, name);
    _exit(0);
  }
  if (child > 0) waitpid(child, nullptr, 0);
}
