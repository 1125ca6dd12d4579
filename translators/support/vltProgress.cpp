#include "vltProgress.h"

bool vltProgress::report(std::size_t done) {
  next_ = done + step_;
  output_.progress(static_cast<int>(100.0 * static_cast<double>(done) / static_cast<double>(total_)));
  if (file_) file_->release_front(done);
  return !output_.cancelled();
}
