#pragma once

#include <atomic>

#include "apCriticalSection.h"
#include "apExport.h"
#include "v2vTranslationDetails.h"
#include "v2vTranslationElements.h"

// What the threads of a translation share: its counts, and the wish to stop. Every operation may be called from several
// threads; `cancel` also from a signal handler.
class VELPLATFORM_API v2vThreadComm {
 public:
  explicit v2vThreadComm(const apISynchOperations* operations = nullptr);

  // Begins a new request: the counts start at 0 and an earlier wish to stop is forgotten.
  void register_translation(const v2vTranslationElements& elements);

  // Sets the counts to 0, for a request that may be refused before it is registered.
  void forget_counts();

  // The counts of the request that was registered last; before any, both are 0.
  v2vTranslationDetails current_translation_details() const;

  void count_file(bool failed);

  void cancel() { cancelled_.store(true, std::memory_order_relaxed); }
  bool cancelled() const { return cancelled_.load(std::memory_order_relaxed); }

 private:
  mutable apCriticalSection lock_;
  v2vTranslationDetails details_;
  std::atomic<bool> cancelled_{false};
};
