#pragma once

#include <atomic>

#include "apCriticalSection.h"
#include "apExport.h"
#include "v2vTranslationDetails.h"
#include "v2vTranslationElements.h"

// State shared by the threads of a translation: its counts, and the cancellation flag. Every operation is thread-safe;
// `cancel` may also be called from a signal handler.
class VELPLATFORM_API v2vThreadComm {
 public:
  explicit v2vThreadComm(const apISynchOperations* operations = nullptr);

  // Starts a new request: sets the counts to 0 and clears the cancellation flag.
  void register_translation(const v2vTranslationElements& elements);

  // Sets the counts to 0, for a request that may be rejected before it is registered.
  void forget_counts();

  // The counts of the request that was registered last; both are 0 before the first one.
  v2vTranslationDetails current_translation_details() const;

  void count_file(bool failed);

  void cancel() { cancelled_.store(true, std::memory_order_relaxed); }
  bool cancelled() const { return cancelled_.load(std::memory_order_relaxed); }

 private:
  mutable apCriticalSection lock_;
  v2vTranslationDetails details_;
  std::atomic<bool> cancelled_{false};
};
