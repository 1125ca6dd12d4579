#include "velabsBackgroundWriter.h"

#include <system_error>
#include <utility>

#include "velabsReplacementFile.h"

velabsBackgroundWriter::~velabsBackgroundWriter() {
  if (!thread_.joinable()) return;
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

void velabsBackgroundWriter::write(std::unique_ptr<char[]>& buffer, std::size_t used, std::size_t size,
                                   utString& failure) {
  wait(failure);
  if (used == 0 || !failure.is_null()) return;
  if (!thread_.joinable()) {
    try {
      thread_ = std::thread([this] { run(); });
    } catch (const std::system_error&) {
      file_.write({buffer.get(), used}, failure);
      return;
    }
  }
  if (!buffer_) buffer_ = std::make_unique_for_overwrite<char[]>(size);
  {
    const std::lock_guard lock(mutex_);
    std::swap(buffer, buffer_);
    used_ = used;
  }
  changed_.notify_all();
}

void velabsBackgroundWriter::wait(utString& failure) {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return used_ == 0; });
  if (failure.is_null()) failure = failure_;
}

void velabsBackgroundWriter::run() {
  std::unique_lock lock(mutex_);
  while (true) {
    changed_.wait(lock, [this] { return used_ > 0 || ending_; });
    if (used_ == 0) return;
    const std::size_t used = used_;
    utString failure;
    lock.unlock();
    file_.write({buffer_.get(), used}, failure);
    lock.lock();
    failure_ = failure;
    used_ = 0;
    changed_.notify_all();
  }
}
