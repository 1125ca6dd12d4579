#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

static_assert(std::endian::native == std::endian::little, "words are summed as they lie in memory");

// The result of `hpfChecksum`.
struct hpfSum {
  std::uint64_t first = 0;
  std::uint64_t second = 0;

  friend bool operator==(const hpfSum&, const hpfSum&) = default;
};

// The checksum of the HPF format; its speed is close to that of reading memory. Each word of 8 bytes changes one of
// eight lanes in turn by a bijection, and each lane changes the first sum by a bijection. So two inputs of the same
// length that differ in one word always have different first sums. The second sum detects changes of several words.
class hpfChecksum {
 public:
  static constexpr std::size_t stripe = 64;

  // `size` must be a multiple of `stripe`.
  void add(const char* bytes, std::size_t size) {
    // Local copies stay in registers during the loop.
    auto [a0, a1, a2, a3, a4, a5, a6, a7] = first_;
    auto [b0, b1, b2, b3] = second_;
    for (const char* const end = bytes + size; bytes != end; bytes += stripe) {
      take(bytes, a0, b0);
      take(bytes + 8, a1, b1);
      take(bytes + 16, a2, b2);
      take(bytes + 24, a3, b3);
      take(bytes + 32, a4, b0);
      take(bytes + 40, a5, b1);
      take(bytes + 48, a6, b2);
      take(bytes + 56, a7, b3);
    }
    first_ = {a0, a1, a2, a3, a4, a5, a6, a7};
    second_ = {b0, b1, b2, b3};
    size_ += size;
  }

  // The checksum of all added bytes.
  hpfSum value() const { return {folded(first_), folded(second_)}; }

  static hpfSum of(std::string_view bytes) {
    hpfChecksum checksum;
    checksum.add(bytes.data(), bytes.size());
    return checksum.value();
  }

 private:
  static constexpr std::uint64_t step = 0x9E3779B97F4A7C15;
  static constexpr std::uint64_t spread = 0xD6E8FEB86659FD93;

  static void take(const char* bytes, std::uint64_t& a, std::uint64_t& b) {
    std::uint64_t word;
    std::memcpy(&word, bytes, sizeof word);
    a = (a ^ word) * step;
    b = std::rotl(b, 23) + a;
  }

  template <std::size_t Count>
  std::uint64_t folded(const std::array<std::uint64_t, Count>& lanes) const {
    std::uint64_t sum = size_;
    for (std::uint64_t lane : lanes) {
      sum ^= lane;
      sum = (sum ^ sum >> 32) * spread;
      sum = (sum ^ sum >> 29) * spread;
      sum ^= sum >> 32;
    }
    return sum;
  }

  std::array<std::uint64_t, 8> first_{1 * step, 2 * step, 3 * step, 4 * step, 5 * step, 6 * step, 7 * step, 8 * step};
  std::array<std::uint64_t, 4> second_{9 * step, 10 * step, 11 * step, 12 * step};
  std::uint64_t size_ = 0;
};
