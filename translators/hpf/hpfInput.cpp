#include "hpfInput.h"

#include "vltNames.h"

namespace {

constexpr std::size_t progress_step = std::size_t{4} << 20;

template <typename Head>
Head head_at(std::string_view bytes, std::uint64_t place) {
  Head head;
  std::memcpy(&head, bytes.data() + place, sizeof head);
  return head;
}

std::string version(std::uint32_t major, std::uint32_t minor) {
  return std::to_string(major) + "." + std::to_string(minor);
}

}  // namespace

hpfInput::hpfInput(apMappedFile& file, velabsOutput& output)
    : bytes_(file.bytes()), output_(output), progress_(output, bytes_.size(), progress_step, &file) {}

bool hpfInput::tell(std::uint64_t place, const std::string& reason) {
  if (good_) output_.message(velabsERROR, utString("byte " + std::to_string(place) + ": " + reason));
  good_ = false;
  return false;
}

bool hpfInput::begin() {
  if (!bytes_.starts_with(hpf_mark)) return tell(0, "the mark of an HPF file is missing or damaged");
  if (bytes_.size() < sizeof(hpfFileHead)) {
    return tell(bytes_.size(), "the file ends within its head; it was cut off");
  }
  const auto head = head_at<hpfFileHead>(bytes_, 0);
  if (head.sum != hpf_sum_of_head(head)) return tell(0, "the head of the file is damaged: its checksum does not fit");
  if (head.major != hpf_major) {
    return tell(8, "the file is of HPF version " + version(head.major, head.minor) + ", this program reads version " +
                       version(hpf_major, hpf_minor) + "; read it with the program that wrote it");
  }
  if (head.length != bytes_.size()) {
    return tell(std::min<std::uint64_t>(head.length, bytes_.size()),
                "the file has " + std::to_string(bytes_.size()) + " bytes where its head says " +
                    std::to_string(head.length) + (head.length > bytes_.size() ? "; it was cut off" : ""));
  }
  minor_ = head.minor;
  return true;
}

bool hpfInput::end_chunk(hpfSum& sum) {
  at_ = summed_;
  while (good_ && at_ < end_) {
    sum_up(1);
    at_ = summed_;
  }
  sum = checksum_.value();
  return good_;
}

bool hpfInput::next() {
  hpfSum sum;
  if (!good_ || !end_chunk(sum)) return false;
  const std::uint64_t place = end_;
  if (!first_ && head_.name == hpf_end_chunk) {
    return place == bytes_.size() ? false : tell(place, "there are bytes behind the end");
  }
  if (bytes_.size() - place < sizeof(hpfChunkHead)) return tell(place, "the file ends without its last chunk");
  const auto head = head_at<hpfChunkHead>(bytes_, place);
  if (head.sum != hpf_sum_of_head(head)) {
    return tell(place, "the head of a chunk is damaged: its checksum does not fit");
  }
  if (head.place != place) return tell(place, "a chunk stands in the wrong place");
  if (head.before != sum) {
    return tell(first_ ? place : begin_, "the file is damaged: the checksum of " +
                                             (first_ ? "its front" : "chunk " + vlt_quoted(name())) + " does not fit");
  }
  begin_ = place + sizeof head;
  const bool is_end = head.name == hpf_end_chunk;
  if (head.length % hpf_alignment != 0 || head.length > bytes_.size() - begin_ || (is_end && head.length != 0)) {
    return tell(place, "a chunk of " + std::to_string(head.length) + " bytes does not fit into the file");
  }
  head_ = head;
  end_ = begin_ + head.length;
  at_ = summed_ = begin_;
  checksum_ = hpfChecksum();
  first_ = false;
  return true;
}

bool hpfInput::sum_up(std::size_t wanted) {
  if (!good_) return false;
  while (summed_ - at_ < wanted) {
    const auto size = static_cast<std::size_t>(std::min<std::uint64_t>(block_size, end_ - summed_));
    checksum_.add(bytes_.data() + summed_, size);
    summed_ += size;
  }
  if (progress_.reached(static_cast<std::size_t>(at_))) return true;
  cancelled_ = true;
  good_ = false;
  return false;
}

bool hpfInput::has(std::uint64_t count, std::size_t element_size) {
  if (!good_) return false;
  if (count <= left() / element_size) return true;
  return fail("it is too short for the " + std::to_string(count) + " elements that it says");
}

bool hpfInput::text(std::string& text, std::uint64_t length) {
  if (!has(length, 1)) return false;
  const std::uint64_t front = at_;
  while (at_ - front < length) {
    if (!sum_up(1)) return false;
    at_ = std::min(summed_, front + length);
  }
  text.assign(bytes_.data() + front, static_cast<std::size_t>(length));
  pass_over(at_);
  return true;
}

bool hpfInput::fail(const std::string& reason) {
  hpfSum sum;
  if (!good_ || !end_chunk(sum)) return false;
  const std::string chunk = "chunk " + vlt_quoted(name());
  // The expected checksum is in the next header.
  if (bytes_.size() - end_ >= sizeof(hpfChunkHead)) {
    const auto head = head_at<hpfChunkHead>(bytes_, end_);
    if (head.sum == hpf_sum_of_head(head) && head.before != sum) {
      return tell(begin_, "the file is damaged: the checksum of " + chunk + " does not fit");
    }
  }
  return tell(begin_, chunk + ": " + reason);
}
