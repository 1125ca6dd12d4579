#pragma once

// The exit code of the program, for scripts.
enum velExitCode : int {
  velEXIT_DONE = 0,
  velEXIT_FAILED = 1,         // the work itself failed, or was cancelled
  velEXIT_USAGE = 2,          // a wrong argument, or an option value that does not validate
  velEXIT_NO_TRANSLATOR = 3,  // no translator reads an input, or none writes the output
  velEXIT_BAD_INPUT = 4,      // an input is missing, unreadable, malformed or empty
};
