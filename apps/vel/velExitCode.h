#pragma once

// How the program ended, for scripts.
enum velExitCode : int {
  velEXIT_DONE = 0,
  velEXIT_FAILED = 1,         // the work itself failed, or was cancelled
  velEXIT_USAGE = 2,          // a wrong word on the command line, or an option's value that does not validate
  velEXIT_NO_TRANSLATOR = 3,  // nothing reads an input, or nothing writes the output
  velEXIT_BAD_INPUT = 4,      // an input is missing, unreadable or malformed
};
