#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "apLargePages.h"
#include "apMappedFile.h"
#include "hpfLayout.h"
#include "velabsOutput.h"
#include "vltProgress.h"

// Reads the chunks of a file in order. Data is added to the checksum block by block just before it is copied, so that
// the file passes the processor's caches once; it is then compared with the checksum in the next chunk's header. The
// first error is reported with its position and ends the reading: later calls fail without a message.
class hpfInput {
 public:
  hpfInput(apMappedFile& file, velabsOutput& output);

  // Checks the file header.
  bool begin();

  // Skips the rest of the current chunk, checks it and goes to the next one. False after the last one and after an
  // error.
  bool next();

  std::string_view name() const { return {head_.name.data(), head_.name.size()}; }
  bool is_critical() const { return (head_.flags & hpf_critical) != 0; }
  std::uint32_t minor() const { return minor_; }

  // Bytes of the current chunk that are not read yet.
  std::uint64_t left() const { return end_ - at_; }

  // Reads the next record of the current chunk, or `count` elements of an array; padding to 64 bytes is skipped.
  // `check` is called with blocks of elements and returns false for invalid ones.
  template <typename Record>
  bool record(Record& record);
  template <typename Element, typename Check>
  bool array(std::vector<Element>& elements, std::uint64_t count, Check check);
  bool text(std::string& text, std::uint64_t length);

  // Reports an error in the current chunk: that the file is damaged if the checksum is wrong too, else the reason.
  // Always false.
  bool fail(const std::string& reason);

  bool good() const { return good_; }
  bool cancelled() const { return cancelled_; }

 private:
  static constexpr std::size_t block_size = std::size_t{16} << 10;

  bool tell(std::uint64_t place, const std::string& reason);
  bool end_chunk(hpfSum& sum);
  // Adds at least `wanted` bytes after `at_` to the checksum. They must exist.
  bool sum_up(std::size_t wanted);
  bool has(std::uint64_t count, std::size_t element_size);
  void pass_over(std::uint64_t place) { at_ = std::min<std::uint64_t>(hpf_aligned(place), end_); }

  std::string_view bytes_;
  velabsOutput& output_;
  vltProgress progress_;
  hpfChunkHead head_{};
  hpfChecksum checksum_;
  std::uint64_t begin_ = sizeof(hpfFileHead);   // content of the current chunk
  std::uint64_t end_ = sizeof(hpfFileHead);     // end of the content
  std::uint64_t at_ = sizeof(hpfFileHead);      // start of the bytes that are not read yet
  std::uint64_t summed_ = sizeof(hpfFileHead);  // start of the bytes that are not in the checksum yet
  std::uint32_t minor_ = 0;
  bool first_ = true;
  bool good_ = true;
  bool cancelled_ = false;
};

template <typename Record>
bool hpfInput::record(Record& record) {
  if (!has(1, sizeof record) || !sum_up(sizeof record)) return false;
  std::memcpy(&record, bytes_.data() + at_, sizeof record);
  pass_over(at_ + sizeof record);
  return true;
}

template <typename Element, typename Check>
bool hpfInput::array(std::vector<Element>& elements, std::uint64_t count, Check check) {
  if (!has(count, sizeof(Element))) return false;
  ap_reserve_large(elements, count);
  while (elements.size() < count) {
    if (!sum_up(sizeof(Element))) return false;
    const auto* const front = reinterpret_cast<const Element*>(bytes_.data() + at_);
    const std::size_t ready = (summed_ - at_) / sizeof(Element);
    const std::size_t taken = std::min<std::size_t>(ready, count - elements.size());
    if (!check(std::span<const Element>(front, taken))) return false;
    elements.insert(elements.end(), front, front + taken);
    at_ += taken * sizeof(Element);
  }
  pass_over(at_);
  return true;
}
