#pragma once

#include <condition_variable>
#include <cstddef>
#include <memory>
#include <mutex>
#include <thread>

#include "utString.h"

class velabsReplacementFile;

// Writes one full buffer to a file while the next one is filled: a thread of its own, which begins with the first
// buffer. Where no thread can be had the caller writes.
class velabsBackgroundWriter {
 public:
  // The file must outlive the writer.
  explicit velabsBackgroundWriter(velabsReplacementFile& file) : file_(file) {}
  ~velabsBackgroundWriter();
  velabsBackgroundWriter(const velabsBackgroundWriter&) = delete;
  velabsBackgroundWriter& operator=(const velabsBackgroundWriter&) = delete;

  // Takes `used` bytes of `buffer`, which is exchanged for one of `size` bytes to be filled next. Waits until the bytes
  // handed over before are written; `failure` receives why they could not be.
  void write(std::unique_ptr<char[]>& buffer, std::size_t used, std::size_t size, utString& failure);

  // Waits until everything is written.
  void wait(utString& failure);

 private:
  void run();

  velabsReplacementFile& file_;
  std::thread thread_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::unique_ptr<char[]> buffer_;
  std::size_t used_ = 0;  // bytes still to be written; 0 when the thread has nothing to do
  bool ending_ = false;
  utString failure_;
};
