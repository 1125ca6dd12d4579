#pragma once

#include <condition_variable>
#include <cstddef>
#include <memory>
#include <mutex>
#include <thread>

#include "utString.h"

class velabsReplacementFile;

// Writes one full buffer to a file while the caller fills the next one. Uses a separate thread, which starts with the
// first buffer. If no thread can be created the caller writes.
class velabsBackgroundWriter {
 public:
  // The file must outlive the writer.
  explicit velabsBackgroundWriter(velabsReplacementFile& file) : file_(file) {}
  ~velabsBackgroundWriter();
  velabsBackgroundWriter(const velabsBackgroundWriter&) = delete;
  velabsBackgroundWriter& operator=(const velabsBackgroundWriter&) = delete;

  // Writes `used` bytes of `buffer`, and replaces it by a buffer of `size` bytes to fill next. Waits until the previous
  // bytes are written; if that failed `failure` is set.
  void write(std::unique_ptr<char[]>& buffer, std::size_t used, std::size_t size, utString& failure);

  // Waits until all bytes are written.
  void wait(utString& failure);

 private:
  void run();

  velabsReplacementFile& file_;
  std::thread thread_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::unique_ptr<char[]> buffer_;
  std::size_t used_ = 0;  // bytes still to write; 0 while the thread is idle
  bool ending_ = false;
  utString failure_;
};
