#pragma once

#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "exaExport.h"
#include "velabsOutput.h"

// The kernel at work for one translator. It keeps parameters and unit factors of a transfer for the whole process, so
// one session at a time reads or writes; others wait. What the kernel says on the session's thread is taken down and
// never reaches the terminal.
class VELEXACT_API exaSession {
 public:
  explicit exaSession(velabsOutput& output);
  ~exaSession();
  exaSession(const exaSession&) = delete;
  exaSession& operator=(const exaSession&) = delete;

  // Runs a piece of work; what the kernel throws becomes an error message that begins with `what`, and false.
  bool guarded(const char* what, const std::function<bool()>& work);

  // Says what the kernel complained of, each complaint once; the numbers and names of entities in it differ, so more
  // than a few are only counted.
  void tell_complaints();

  // The kernel's first grave complaint as the end of a sentence, ": ..." ; empty when it made none.
  std::string reason() const;

 private:
  friend class exaPrinter;
  struct Complaint {
    std::string text;
    bool grave;
    std::size_t count;
  };
  void take_down(std::string text, bool grave);

  velabsOutput& output_;
  std::unique_lock<std::mutex> lock_;
  std::vector<Complaint> complaints_;
  std::size_t more_ = 0;
};

// Runs work of the kernel that needs no session: parsing, measuring, meshing of a shape. Why it failed, or nothing.
VELEXACT_API std::string exa_failure_of(const std::function<void()>& work);
