#pragma once

// From now on the first Ctrl-C (or SIGTERM) only sets a flag, so that the work can stop cleanly. The second one ends
// the program. A signal that was ignored when the program started stays ignored.
void vel_catch_interrupts();

// True after the first signal. Thread-safe.
bool vel_interrupted();
