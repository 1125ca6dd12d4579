#include "MeshFiles.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <numbers>

namespace {

using Point = std::array<float, 3>;

// A grid of quadrilaterals that is closed in both directions. Each is cut into two triangles.
class Ring {
 public:
  explicit Ring(std::size_t triangles)
      : rows_(static_cast<std::size_t>(std::sqrt(static_cast<double>(triangles) / 4))),
        columns_(triangles / 2 / rows_) {}

  std::size_t triangles() const { return 2 * rows_ * columns_; }
  std::size_t points() const { return rows_ * columns_; }

  Point point(std::size_t index) const {
    constexpr double turn = 2 * std::numbers::pi;
    const double u = turn * static_cast<double>(index / columns_) / static_cast<double>(rows_);
    const double v = turn * static_cast<double>(index % columns_) / static_cast<double>(columns_);
    const double tube = 20 + 3 * std::sin(7 * u) * std::cos(5 * v);
    const double from_axis = 60 + tube * std::cos(v);
    return {static_cast<float>(from_axis * std::cos(u)), static_cast<float>(from_axis * std::sin(u)),
            static_cast<float>(tube * std::sin(v))};
  }

  std::array<std::size_t, 3> triangle(std::size_t index) const {
    const std::size_t row = index / 2 / columns_, column = index / 2 % columns_;
    const std::size_t next_row = (row + 1) % rows_, next_column = (column + 1) % columns_;
    const std::size_t a = row * columns_ + column, b = next_row * columns_ + column;
    const std::size_t c = next_row * columns_ + next_column, d = row * columns_ + next_column;
    if (index % 2 == 0) return {a, b, c};
    return {a, c, d};
  }

 private:
  std::size_t rows_;
  std::size_t columns_;
};

Point normal(const std::array<Point, 3>& t) {
  const Point p{t[1][0] - t[0][0], t[1][1] - t[0][1], t[1][2] - t[0][2]};
  const Point q{t[2][0] - t[0][0], t[2][1] - t[0][1], t[2][2] - t[0][2]};
  const Point n{p[1] * q[2] - p[2] * q[1], p[2] * q[0] - p[0] * q[2], p[0] * q[1] - p[1] * q[0]};
  const float length = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
  return {n[0] / length, n[1] / length, n[2] / length};
}

template <typename Use>
void for_each_triangle(const Ring& ring, Use use) {
  for (std::size_t i = 0; i < ring.triangles(); ++i) {
    std::array<Point, 3> corners;
    const auto numbers = ring.triangle(i);
    for (std::size_t k = 0; k < 3; ++k) corners[k] = ring.point(numbers[k]);
    use(corners);
  }
}

std::string line(const char* keyword, const Point& p) {
  std::array<char, 128> text;
  const int size = std::snprintf(text.data(), text.size(), "%s %.9g %.9g %.9g\n", keyword, static_cast<double>(p[0]),
                                 static_cast<double>(p[1]), static_cast<double>(p[2]));
  return {text.data(), static_cast<std::size_t>(size)};
}

}  // namespace

void make_binary_stl(const std::string& file, std::size_t triangles) {
  const Ring ring(triangles);
  std::ofstream out(file, std::ios::binary);
  const auto count = static_cast<std::uint32_t>(ring.triangles());
  out << std::string(80, '\0');
  out.write(reinterpret_cast<const char*>(&count), sizeof count);
  for_each_triangle(ring, [&](const std::array<Point, 3>& corners) {
    std::array<char, 50> record{};
    const Point n = normal(corners);
    std::memcpy(record.data(), n.data(), sizeof n);
    std::memcpy(record.data() + sizeof n, corners.data(), sizeof corners);
    out.write(record.data(), record.size());
  });
}

void make_ascii_stl(const std::string& file, std::size_t triangles) {
  std::ofstream out(file, std::ios::binary);
  out << "solid ring\n";
  for_each_triangle(Ring(triangles), [&](const std::array<Point, 3>& corners) {
    out << line("facet normal", normal(corners)) << " outer loop\n";
    for (const Point& corner : corners) out << line("  vertex", corner);
    out << " endloop\nendfacet\n";
  });
  out << "endsolid ring\n";
}

void make_obj(const std::string& file, std::size_t triangles) {
  const Ring ring(triangles);
  std::ofstream out(file, std::ios::binary);
  for (std::size_t i = 0; i < ring.points(); ++i) out << line("v", ring.point(i));
  for (std::size_t i = 0; i < ring.triangles(); ++i) {
    const auto t = ring.triangle(i);
    out << "f " << t[0] + 1 << ' ' << t[1] + 1 << ' ' << t[2] + 1 << '\n';
  }
}
