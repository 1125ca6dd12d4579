#include "exaStreams.h"

#include <algorithm>
#include <stdexcept>

namespace {

constexpr int most_reads_behind_end = 100;
constexpr std::size_t piece = std::size_t{1} << 18;

}  // namespace

exaInputBuffer::exaInputBuffer(std::string_view bytes, velabsOutput* output, int percent)
    : bytes_(bytes), output_(output), percent_(percent) {
  hand_over(0);
}

// The buffer is the whole memory; only the end of its readable part moves.
void exaInputBuffer::hand_over(std::size_t at) {
  char* const begin = const_cast<char*>(bytes_.data());
  const std::size_t end = output_ ? std::min(bytes_.size(), at + piece) : bytes_.size();
  setg(begin, begin + at, begin + end);
}

exaInputBuffer::int_type exaInputBuffer::underflow() {
  const std::size_t at = static_cast<std::size_t>(gptr() - eback());
  if (at >= bytes_.size() || !output_ || output_->cancelled()) {
    // Some of the kernel's readers never check for the end of the data.
    if (++reads_behind_end_ > most_reads_behind_end) throw std::runtime_error("the bytes end too early");
    return traits_type::eof();
  }
  output_->progress(static_cast<int>(static_cast<double>(at) / static_cast<double>(bytes_.size()) * percent_));
  hand_over(at);
  return traits_type::to_int_type(*gptr());
}

exaInputBuffer::pos_type exaInputBuffer::seekoff(off_type offset, std::ios_base::seekdir from,
                                                 std::ios_base::openmode mode) {
  off_type start = 0;
  if (from == std::ios_base::cur) start = gptr() - eback();
  if (from == std::ios_base::end) start = static_cast<off_type>(bytes_.size());
  return seekpos(start + offset, mode);
}

exaInputBuffer::pos_type exaInputBuffer::seekpos(pos_type position, std::ios_base::openmode) {
  const off_type at = position;
  if (at < 0 || at > static_cast<off_type>(bytes_.size())) return pos_type(off_type(-1));
  hand_over(static_cast<std::size_t>(at));
  return position;
}

exaOutputBuffer::int_type exaOutputBuffer::overflow(int_type c) {
  if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
  const char byte = traits_type::to_char_type(c);
  stream_.write({&byte, 1});
  return stream_.good() ? c : traits_type::eof();
}

std::streamsize exaOutputBuffer::xsputn(const char* bytes, std::streamsize count) {
  stream_.write({bytes, static_cast<std::size_t>(count)});
  return stream_.good() ? count : 0;
}
