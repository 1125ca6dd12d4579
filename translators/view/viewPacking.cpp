#include "viewPacking.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

void put16(std::string& bytes, unsigned value) {
  bytes += static_cast<char>(value & 0xff);
  bytes += static_cast<char>(value >> 8 & 0xff);
}

void put_number(std::string& bytes, std::uint64_t value) {
  for (; value >= 0x80; value >>= 7) bytes += static_cast<char>((value & 0x7f) | 0x80);
  bytes += static_cast<char>(value);
}

void put_signed(std::string& bytes, std::int64_t value) {
  put_number(bytes, value < 0 ? 2 * static_cast<std::uint64_t>(-value) - 1 : 2 * static_cast<std::uint64_t>(value));
}

void pad(std::string& bytes) {
  bytes.resize((bytes.size() + 3) / 4 * 4);
}

unsigned across(double value, double low, double high) {
  // Divide first: the width of a box may overflow.
  const double half_width = high / 2 - low / 2;
  if (!(half_width > 0)) return 0;
  return static_cast<unsigned>(std::lround(std::clamp((value / 2 - low / 2) / half_width, 0.0, 1.0) * 65535));
}

int in_octahedron(float value) {
  return static_cast<int>(std::lround(std::clamp(value, -1.0F, 1.0F) * 32767));
}

void put_normal(std::string& bytes, const viewMesh::Normal& n) {
  const float sum = std::fabs(n.x) + std::fabs(n.y) + std::fabs(n.z);
  float x = sum > 0 ? n.x / sum : 0, y = sum > 0 ? n.y / sum : 0;
  if (n.z < 0) {
    const float folded_x = (1 - std::fabs(y)) * (x < 0 ? -1.0F : 1.0F);
    y = (1 - std::fabs(x)) * (y < 0 ? -1.0F : 1.0F);
    x = folded_x;
  }
  put16(bytes, static_cast<unsigned>(in_octahedron(x)));
  put16(bytes, static_cast<unsigned>(in_octahedron(y)));
}

char in_byte(float value) {
  return static_cast<char>(value > 0 ? std::lround(std::min(value, 1.0F) * 255) : 0);
}

}  // namespace

viewPacked view_pack(const viewMesh& mesh) {
  viewPacked packed;
  std::string& bytes = packed.bytes;
  bytes.reserve(14 * mesh.points.size() + 2 * mesh.corners.size() + 3 * mesh.edges.size());
  for (const annVector& p : mesh.points) {
    put16(bytes, across(p.x, mesh.box.min.x, mesh.box.max.x));
    put16(bytes, across(p.y, mesh.box.min.y, mesh.box.max.y));
    put16(bytes, across(p.z, mesh.box.min.z, mesh.box.max.z));
  }
  pad(bytes);
  for (const viewMesh::Normal& normal : mesh.normals) put_normal(bytes, normal);
  for (const annColour& c : mesh.colours) {
    for (float value : {c.red, c.green, c.blue, c.opacity}) bytes += in_byte(value);
  }

  std::size_t start = bytes.size();
  std::uint32_t next = 0;
  for (std::uint32_t corner : mesh.corners) {
    put_number(bytes, next - corner);
    next = std::max(next, corner + 1);
  }
  packed.corner_bytes = bytes.size() - start;
  pad(bytes);

  start = bytes.size();
  std::int64_t last = 0;
  for (std::size_t i = 0; i < mesh.edges.size(); i += 2) {
    const std::int64_t first = mesh.edges[i];
    put_signed(bytes, first - last);
    put_signed(bytes, std::int64_t{mesh.edges[i + 1]} - first);
    last = first;
  }
  packed.edge_bytes = bytes.size() - start;
  pad(bytes);
  return packed;
}
