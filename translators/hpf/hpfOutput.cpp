#include "hpfOutput.h"

#include <algorithm>
#include <cstring>

#include "vltProgress.h"

namespace {

// Large enough that the stream writes it without a copy, small enough to stay in the processor's cache after it was
// added to the checksum.
constexpr std::size_t block_size = velabsOfStream::buffer_size;

class ChunkWriter {
 public:
  ChunkWriter(std::uint32_t minor, std::uint64_t length, velabsOfStream& stream, velabsOutput& output)
      : stream_(stream), progress_(output, static_cast<std::size_t>(length), 4 * block_size) {
    hpfFileHead head{{}, hpf_major, minor, length, {}, {}};
    std::copy(hpf_mark.begin(), hpf_mark.end(), head.mark.begin());
    put_head(head);
  }

  // False when the stream fails or the work is cancelled.
  bool write(const hpfChunk& chunk) {
    begin(chunk);
    for (std::string_view piece : chunk.pieces) {
      if (!write_piece(piece)) return false;
    }
    return true;
  }

  bool cancelled() const { return cancelled_; }

 private:
  void begin(const hpfChunk& chunk) {
    hpfChunkHead head{chunk.name, chunk.flags, chunk.length(), place_, 0, checksum_.value(), {}};
    checksum_ = hpfChecksum();
    put_head(head);
  }

  template <typename Head>
  void put_head(Head head) {
    head.sum = hpf_sum_of_head(head);
    put({reinterpret_cast<const char*>(&head), sizeof head});
  }

  bool write_piece(std::string_view piece) {
    while (piece.size() >= hpf_alignment) {
      const std::string_view block =
          piece.substr(0, std::min(block_size, piece.size() / hpf_alignment * hpf_alignment));
      put_summed(block);
      piece.remove_prefix(block.size());
      if (!stream_.good()) return false;
      cancelled_ = !progress_.reached(static_cast<std::size_t>(place_));
      if (cancelled_) return false;
    }
    if (!piece.empty()) {
      char last[hpf_alignment] = {};
      std::memcpy(last, piece.data(), piece.size());
      put_summed({last, sizeof last});
    }
    return stream_.good();
  }

  void put_summed(std::string_view bytes) {
    checksum_.add(bytes.data(), bytes.size());
    put(bytes);
  }

  void put(std::string_view bytes) {
    stream_.write(bytes);
    place_ += bytes.size();
  }

  velabsOfStream& stream_;
  vltProgress progress_;
  hpfChecksum checksum_;
  std::uint64_t place_ = 0;
  bool cancelled_ = false;
};

}  // namespace

velabsResult hpf_write_chunks(const hpfPlan& plan, velabsOfStream& stream, velabsOutput& output) {
  const std::vector<hpfChunk>& chunks = plan.chunks();
  std::uint64_t length = sizeof(hpfFileHead) + sizeof(hpfChunkHead);
  for (const hpfChunk& chunk : chunks) length += sizeof(hpfChunkHead) + chunk.length();

  ChunkWriter writer(plan.minor(), length, stream, output);
  const bool written =
      std::all_of(chunks.begin(), chunks.end(), [&](const auto& chunk) { return writer.write(chunk); });
  if (writer.cancelled()) return velabsCANCELLED;
  return written && writer.write({hpf_end_chunk, hpf_critical, {}}) ? velabsDONE : velabsFAILED;
}
