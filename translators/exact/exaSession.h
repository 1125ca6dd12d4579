#pragma once

#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "exaExport.h"
#include "velabsOutput.h"

// Use of the kernel by one translator. The kernel has global parameters and unit factors, so only one session at a
// time reads or writes; others wait. Kernel messages of the session's thread are collected and never printed.
class VELEXACT_API exaSession {
 public:
  explicit exaSession(velabsOutput& output);
  ~exaSession();
  exaSession(const exaSession&) = delete;
  exaSession& operator=(const exaSession&) = delete;

  // Runs kernel work. An exception becomes an error message that begins with `what`, and the result is false.
  bool guarded(const char* what, const std::function<bool()>& work);

  // Reports the kernel's messages, each once. They differ by entity number and name, so after the first few they are
  // only counted.
  void tell_complaints();

  // The kernel's first serious error, else its first message, as the end of a sentence: ": ...". Empty without
  // messages.
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

// Runs kernel work that needs no session: parsing, measuring or meshing a shape. Returns the error, empty on success.
VELEXACT_API std::string exa_failure_of(const std::function<void()>& work);
