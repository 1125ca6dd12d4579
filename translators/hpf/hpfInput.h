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

// The chunks of a file, from front to back. What is taken out of a chunk is summed block by block just before, while it
// is copied, so that the file goes through the processor's caches once; the head of the next chunk then tells whether
// it was sound. The first failure is told with its place and ends the reading: what is called later fails in silence.
class hpfInput {
 public:
  hpfInput(apMappedFile& file, velabsOutput& output);

  // Checks the head of the file.
  bool begin();

  // Passes over what is left of the current chunk, checks it and goes to the next one. False behind the last one and
  // after a failure.
  bool next();

  std::string_view name() const { return {head_.name.data(), head_.name.size()}; }
  bool is_critical() const { return (head_.flags & hpf_critical) != 0; }
  std::uint32_t minor() const { return minor_; }

  // Bytes of the current chunk that were not taken.
  std::uint64_t left() const { return end_ - at_; }

  // Takes the next record of the current chunk, or `count` elements of an array; what fills the last 64 bytes is passed
  // over. `check` is called with the elements in blocks and says whether they are sound.
  template <typename Record>
  bool record(Record& record);
  template <typename Element, typename Check>
  bool array(std::vector<Element>& elements, std::uint64_t count, Check check);
  bool text(std::string& text, std::uint64_t length);

  // A failure of the current chunk. Says that the file is damaged if its sum does not fit either, else the reason.
  // Returns false.
  bool fail(const std::string& reason);

  bool good() const { return good_; }
  bool cancelled() const { return cancelled_; }

 private:
  static constexpr std::size_t block_size = std::size_t{16} << 10;

  bool tell(std::uint64_t place, const std::string& reason);
  bool end_chunk(hpfSum& sum);
  // Makes sure that at least `wanted` of the bytes from `at_` on are summed. They are there.
  bool sum_up(std::size_t wanted);
  bool has(std::uint64_t count, std::size_t element_size);
  void pass_over(std::uint64_t place) { at_ = std::min<std::uint64_t>(hpf_aligned(place), end_); }

  std::string_view bytes_;
  velabsOutput& output_;
  vltProgress progress_;
  hpfChunkHead head_{};
  hpfChecksum checksum_;
  std::uint64_t begin_ = sizeof(hpfFileHead);   // of the current chunk's content
  std::uint64_t end_ = sizeof(hpfFileHead);     // the same
  std::uint64_t at_ = sizeof(hpfFileHead);      // what is not taken yet
  std::uint64_t summed_ = sizeof(hpfFileHead);  // and not summed yet
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
