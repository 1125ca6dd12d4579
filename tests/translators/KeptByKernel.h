#pragma once

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>

// The kernel counts references, so entities of a file that stand in themselves keep themselves for ever. While this
// lives, what a thread keeps is no leak.
using KeptByKernel = __lsan::ScopedDisabler;
#else
struct KeptByKernel {
  KeptByKernel() {}
};
#endif
