#pragma once

#include <functional>

enum class exaOutcome {
  DONE,
  BROKE_DOWN,  // the kernel dereferenced a null pointer
  REFUSED      // not run, because the kernel crashed before
};

// Runs work of the kernel and survives a null pointer access in it. Many files with missing entities make the kernel
// dereference a null pointer. The work is then abandoned, its memory is leaked, and the kernel is not used again in
// this process. Other faults are not caught. Exceptions are passed on. During the work, everything that this thread
// prints to the standard streams is dropped.
exaOutcome exa_fenced(const std::function<void()>& work);

// Lets this thread print during its lifetime, also inside exa_fenced.
class exaAloud {
 public:
  exaAloud();
  ~exaAloud();
  exaAloud(const exaAloud&) = delete;
  exaAloud& operator=(const exaAloud&) = delete;

 private:
  int silent_;
};
