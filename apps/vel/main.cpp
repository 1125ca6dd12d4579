#include <cstdio>
#include <cstring>
#include <exception>
#include <new>

#include "velCommandLine.h"
#include "velMessages.h"
#include "velabsAppInfo.h"
#include "vln_exception_handler.h"

namespace {

int run(int count, char** words) {
  velConsole console;
  velExitCode code = velEXIT_DONE;
  try {
    const velCommand command = vel_parse_command_line(count, words, console, code);
    if (command) code = command(console);
  } catch (const std::bad_alloc&) {
    console.error(vel_text(velMSG_NO_MEMORY));
    code = velEXIT_FAILED;
  } catch (const std::exception& error) {
    // With MIRA_ASSERT set, the exception is passed on to a debugger.
    if (!vln_exception_handler(velabsAppInfo("velbase", VEL_VERSION, "vel", "", "UTF-8"))) throw;
    console.error(vel_text(velMSG_UNEXPECTED, {error.what()}));
    code = velEXIT_FAILED;
  }
  if (!console.finish() && code == velEXIT_DONE) code = velEXIT_FAILED;
  return code;
}

}  // namespace

int main(int count, char** words) {
  // Fast path: printing the version needs no command-line parser and no console.
  if (count == 2 && std::strcmp(words[1], "--version") == 0) {
    return std::puts("vel " VEL_VERSION) < 0 || std::fflush(stdout) != 0 ? velEXIT_FAILED : velEXIT_DONE;
  }
  return run(count, words);
}
