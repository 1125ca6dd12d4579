// The lower bound for a translation, as a separate program: it reads and writes one file, without a document and
// checks.
//
//   bare_translation weld     in.stl out.ply   binary STL, equal points merged, binary PLY
//   bare_translation ascii    in.stl out.stl   ASCII STL to binary STL
//   bare_translation obj      in.obj out.stl   OBJ of triangles to binary STL

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Point = std::array<float, 3>;

std::string_view map(const char* file) {
  const int descriptor = open(file, O_RDONLY | O_CLOEXEC);
  struct stat status {};
  if (descriptor < 0 || fstat(descriptor, &status) != 0) return {};
  const auto size = static_cast<std::size_t>(status.st_size);
  void* bytes = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor, 0);
  close(descriptor);
  return bytes == MAP_FAILED ? std::string_view() : std::string_view(static_cast<const char*>(bytes), size);
}

class Output {
 public:
  explicit Output(const char* file) : file_(std::fopen(file, "wb")), buffer_(std::size_t{1} << 20) {}
  ~Output() {
    flush();
    if (file_) std::fclose(file_);
  }
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  void put(const void* bytes, std::size_t size) {
    if (used_ + size > buffer_.size()) flush();
    std::memcpy(buffer_.data() + used_, bytes, size);
    used_ += size;
  }

 private:
  void flush() {
    if (file_) std::fwrite(buffer_.data(), 1, used_, file_);
    used_ = 0;
  }

  std::FILE* file_;
  std::vector<char> buffer_;
  std::size_t used_ = 0;
};

// Gives equal points the same number, with a flat hash table that is at most half full.
class Welder {
 public:
  explicit Welder(std::size_t expected) {
    std::size_t slots = 16;
    while (slots < 2 * expected) slots *= 2;
    slots_.resize(slots);
    points.reserve(expected);
  }

  std::uint32_t number_of(const Point& point) {
    const std::size_t mask = slots_.size() - 1;
    std::array<std::uint32_t, 3> bits;
    std::memcpy(bits.data(), point.data(), sizeof bits);
    std::uint64_t hash = bits[0] * 0x9e3779b97f4a7c15U ^ bits[1] * 0xc2b2ae3d27d4eb4fU ^ bits[2] * 0x165667b19e3779f9U;
    hash ^= hash >> 29;
    for (std::size_t slot = hash & mask;; slot = (slot + 1) & mask) {
      if (slots_[slot] == 0) {
        points.push_back(point);
        return (slots_[slot] = static_cast<std::uint32_t>(points.size())) - 1;
      }
      if (points[slots_[slot] - 1] == point) return slots_[slot] - 1;
    }
  }

  std::vector<Point> points;

 private:
  std::vector<std::uint32_t> slots_;
};

void weld(std::string_view in, Output& out) {
  std::uint32_t count = 0;
  std::memcpy(&count, in.data() + 80, sizeof count);
  Welder welder(count / 2 + 1);
  std::vector<std::uint32_t> corners;
  corners.reserve(3 * std::size_t{count});
  for (std::size_t i = 0; i < count; ++i) {
    std::array<Point, 3> triangle;
    std::memcpy(triangle.data(), in.data() + 84 + 50 * i + 12, sizeof triangle);
    for (const Point& corner : triangle) corners.push_back(welder.number_of(corner));
  }
  const std::string head = "ply\nformat binary_little_endian 1.0\nelement vertex " +
                           std::to_string(welder.points.size()) +
                           "\nproperty float x\nproperty float y\nproperty float z\nelement face " +
                           std::to_string(count) + "\nproperty list uchar int vertex_indices\nend_header\n";
  out.put(head.data(), head.size());
  for (const Point& point : welder.points) out.put(point.data(), sizeof point);
  for (std::size_t i = 0; i < count; ++i) {
    std::array<char, 13> record{3};
    std::memcpy(record.data() + 1, &corners[3 * i], 12);
    out.put(record.data(), record.size());
  }
}

void put_triangle(Output& out, const std::array<Point, 3>& t) {
  const Point p{t[1][0] - t[0][0], t[1][1] - t[0][1], t[1][2] - t[0][2]};
  const Point q{t[2][0] - t[0][0], t[2][1] - t[0][1], t[2][2] - t[0][2]};
  Point n{p[1] * q[2] - p[2] * q[1], p[2] * q[0] - p[0] * q[2], p[0] * q[1] - p[1] * q[0]};
  const float length = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
  for (float& value : n) value /= length;
  std::array<char, 50> record{};
  std::memcpy(record.data(), n.data(), sizeof n);
  std::memcpy(record.data() + sizeof n, t.data(), sizeof t);
  out.put(record.data(), record.size());
}

void put_head(Output& out, std::uint32_t count) {
  const std::array<char, 80> remarks{};
  out.put(remarks.data(), remarks.size());
  out.put(&count, sizeof count);
}

class Scanner {
 public:
  explicit Scanner(std::string_view text) : at_(text.data()), end_(text.data() + text.size()) {}

  std::string_view word() {
    while (at_ < end_ && *at_ <= ' ') ++at_;
    const char* begin = at_;
    while (at_<end_&& * at_> ' ') ++at_;
    return {begin, static_cast<std::size_t>(at_ - begin)};
  }

  template <typename Number>
  Number number() {
    while (at_ < end_ && *at_ <= ' ') ++at_;
    Number value = 0;
    at_ = std::from_chars(at_, end_, value).ptr;
    return value;
  }

  Point point() {
    const float x = number<float>(), y = number<float>();
    return {x, y, number<float>()};
  }

 private:
  const char* at_;
  const char* end_;
};

void ascii(std::string_view in, Output& out) {
  std::vector<std::array<Point, 3>> triangles;
  Scanner scanner(in);
  std::size_t corner = 0;
  std::array<Point, 3> triangle;
  for (std::string_view word = scanner.word(); !word.empty(); word = scanner.word()) {
    if (word == "normal") scanner.point();
    if (word != "vertex") continue;
    triangle[corner++] = scanner.point();
    if (corner == 3) triangles.push_back(triangle);
    corner %= 3;
  }
  put_head(out, static_cast<std::uint32_t>(triangles.size()));
  for (const auto& t : triangles) put_triangle(out, t);
}

void obj(std::string_view in, Output& out) {
  std::vector<Point> points;
  std::vector<std::array<std::uint32_t, 3>> faces;
  Scanner scanner(in);
  for (std::string_view word = scanner.word(); !word.empty(); word = scanner.word()) {
    if (word == "v") points.push_back(scanner.point());
    if (word != "f") continue;
    const auto a = scanner.number<std::uint32_t>(), b = scanner.number<std::uint32_t>();
    faces.push_back({a - 1, b - 1, scanner.number<std::uint32_t>() - 1});
  }
  put_head(out, static_cast<std::uint32_t>(faces.size()));
  for (const auto& f : faces) put_triangle(out, {points[f[0]], points[f[1]], points[f[2]]});
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  const std::string_view how = argv[1], in = map(argv[2]);
  if (in.empty()) return 1;
  Output out(argv[3]);
  if (how == "weld") weld(in, out);
  if (how == "ascii") ascii(in, out);
  if (how == "obj") obj(in, out);
  return 0;
}
