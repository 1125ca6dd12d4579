#pragma once

#include <functional>

enum class exaOutcome {
  DONE,
  BROKE_DOWN,  // the kernel reached through a null pointer
  REFUSED      // nothing was done, as the kernel broke down before
};

// Runs work of the kernel with a fence around it. The kernel reaches through a null pointer for many files that name
// something that is not there: the work is then left where it stood, what it had made is lost with its memory, and the
// kernel is used no more in this process. Other faults take their course. What the work throws passes through.
// Meanwhile whatever it prints to the standard streams on this thread is dropped.
exaOutcome exa_fenced(const std::function<void()>& work);

// As long as it lives, what this thread prints is printed, also within a fence.
class exaAloud {
 public:
  exaAloud();
  ~exaAloud();
  exaAloud(const exaAloud&) = delete;
  exaAloud& operator=(const exaAloud&) = delete;

 private:
  int silent_;
};
