#include "vlnCharBuffer.h"

#include <algorithm>
#include <cstring>

vlnCharBuffer::vlnCharBuffer(int limit) : limit_(limit) {
  text_.reserve(2 * static_cast<std::size_t>(std::max(limit, 1)));
  empty();
}

vlnCharBuffer::~vlnCharBuffer() = default;

void vlnCharBuffer::empty() {
  text_.assign(1, '\0');
}

void vlnCharBuffer::add(const char* text) {
  if (!text || !*text) return;
  text_.insert(text_.end() - 1, text, text + std::strlen(text));
  if (static_cast<long long>(text_.size()) > limit_) flush();
}

void vlnCharBuffer::flush() {
  write_out();
  empty();
}
