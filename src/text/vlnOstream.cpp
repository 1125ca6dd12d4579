#include "vlnOstream.h"

#include <algorithm>
#include <cstring>
#include <mutex>

#include "ubBufferMB.h"
#include "vlnOstreamDisplayer.h"

namespace {

constexpr int row_width = 77;

}  // namespace

vlnOstream::vlnOstream(const apISynchOperations* synch) : lock_(synch) {}

void vlnOstream::add_ostream(std::ostream* stream) {
  if (!stream) return;
  const std::lock_guard guard(lock_);
  streams_.push_back(stream);
}

int vlnOstream::auto_flush(int on) {
  const int before = auto_flush_;
  auto_flush_ = on;
  return before;
}

void vlnOstream::write(std::string_view before, std::string_view text, std::string_view after) {
  for (std::ostream* stream : streams_) {
    // Unformatted output, so that a width set by the caller is neither used nor cleared.
    for (const std::string_view part : {before, text, after}) {
      stream->write(part.data(), static_cast<std::streamsize>(part.size()));
    }
    if (auto_flush_) stream->flush();
  }
}

void vlnOstream::print(const char* text) {
  const std::lock_guard guard(lock_);
  const ubBufferMB bytes(text);
  write(column_ > 0 ? "\n" : "", bytes.text(), "");
  column_ = 0;
}

void vlnOstream::print_dot() {
  const std::lock_guard guard(lock_);
  const bool ends_row = column_ == row_width - 1;
  write("", ".", ends_row ? "\n" : "");
  column_ = ends_row ? 0 : column_ + 1;
}

void vlnOstream::print_percent(int percent) {
  constexpr char digits[] = "0123456789";
  percent = std::clamp(percent, 0, 100);
  const char two_digits[] = {'%', digits[percent / 10 % 10], digits[percent % 10], '%', '\0'};
  const char* text = percent == 100 ? "%100%" : two_digits;
  const int length = static_cast<int>(std::strlen(text));

  const std::lock_guard guard(lock_);
  const bool new_row = column_ + length > row_width;
  if (new_row) column_ = 0;
  write(new_row ? "\n" : "", text, "");
  column_ += length;
  if (column_ >= row_width) column_ = 0;
}

void vlnOstreamDisplayer::display(const char* text) {
  if (stream_) stream_->print(text);
}

vlnOstreamDisplayer::~vlnOstreamDisplayer() = default;
