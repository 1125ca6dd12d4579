#pragma once

// From now on the first Ctrl-C (or SIGTERM) is only noted, for the work to stop in order; the second one kills. A
// signal that the program was started to ignore stays ignored.
void vel_catch_interrupts();

// Safe from any thread.
bool vel_interrupted();
