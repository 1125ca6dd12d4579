#include "v2vThreadComm.h"

#include <mutex>

v2vThreadComm::v2vThreadComm(const apISynchOperations* operations) : lock_(operations) {}

void v2vThreadComm::register_translation(const v2vTranslationElements&) {
  cancelled_.store(false, std::memory_order_relaxed);
  forget_counts();
}

void v2vThreadComm::forget_counts() {
  std::lock_guard guard(lock_);
  details_ = {};
}

v2vTranslationDetails v2vThreadComm::current_translation_details() const {
  std::lock_guard guard(lock_);
  return details_;
}

void v2vThreadComm::count_file(bool failed) {
  std::lock_guard guard(lock_);
  details_ = {details_.num_processed() + 1, details_.num_failed() + (failed ? 1 : 0)};
}
