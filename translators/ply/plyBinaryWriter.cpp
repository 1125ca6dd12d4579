#include "plyBinaryWriter.h"

#include <algorithm>
#include <bit>
#include <cstring>

static_assert(std::endian::native == std::endian::little);

namespace {

constexpr std::size_t entries_at_once = 4096;

using Colours = plyContent::Colours;

template <typename T>
void put(char*& to, T value) {
  std::memcpy(to, &value, sizeof value);
  to += sizeof value;
}

annColour clamped(const annColour& c) {
  auto level = [](float value) { return std::clamp(value, 0.0F, 1.0F); };
  return {level(c.red), level(c.green), level(c.blue), level(c.opacity)};
}

class BinaryWriter {
 public:
  BinaryWriter(const plyContent& content, velabsOfStream& stream, velabsOutput& output)
      : content_(content), stream_(stream), pace_(content, stream, output) {}

  velabsResult write() {
    stream_.write(content_.head("binary_little_endian"));
    for (const vltVertexList& list : content_.mesh.lists().all()) {
      if (!vertices(list)) return pace_.result();
    }
    for (std::size_t body = 0; body < content_.mesh.bodies().size(); ++body) {
      if (!faces(body)) return pace_.result();
    }
    return velabsDONE;
  }

 private:
  // The layout of an entry is a template argument, so that its size is a constant in the loop.
  bool vertices(const vltVertexList& list) {
    return content_.doubles ? with_coordinates<double>(list) : with_coordinates<float>(list);
  }
  template <typename Coordinate>
  bool with_coordinates(const vltVertexList& list) {
    return content_.normals ? with_normals<Coordinate, true>(list) : with_normals<Coordinate, false>(list);
  }
  template <typename Coordinate, bool normals>
  bool with_normals(const vltVertexList& list) {
    switch (content_.vertex_colours) {
      case Colours::none:
        return entries<Coordinate, normals, Colours::none>(list);
      case Colours::bytes:
        return entries<Coordinate, normals, Colours::bytes>(list);
      case Colours::floats:
        break;
    }
    return entries<Coordinate, normals, Colours::floats>(list);
  }

  template <typename Coordinate, bool normals, Colours colours>
  bool entries(const vltVertexList& list) {
    constexpr std::size_t most_size = 3 * sizeof(double) + 3 * sizeof(float) + 4 * sizeof(float);
    const annVertices& from = *list.vertices;
    const annColour* const tints = colours == Colours::none ? nullptr : content_.mesh.colours_of(list).data();
    const bool placed = !list.placement.is_identity();
    for (std::size_t i = 0; i < from.points.size();) {
      const std::size_t end = std::min(from.points.size(), i + entries_at_once);
      const std::size_t count = end - i;
      char* const begin = stream_.reserve(count * most_size);
      char* to = begin;
      for (; i < end; ++i) {
        const annVector p = placed ? list.placement.point(from.points[i]) : from.points[i];
        put(to, static_cast<Coordinate>(p.x));
        put(to, static_cast<Coordinate>(p.y));
        put(to, static_cast<Coordinate>(p.z));
        if constexpr (normals) {
          const annVector n = placed ? list.placement.normal(from.normals[i]) : from.normals[i];
          put(to, static_cast<float>(n.x));
          put(to, static_cast<float>(n.y));
          put(to, static_cast<float>(n.z));
        }
        if constexpr (colours != Colours::none) {
          const annColour colour = tints[i];
          if constexpr (colours == Colours::bytes) {
            put(to, vlt_bytes_of(colour));
          } else {
            put(to, clamped(colour));
          }
        }
      }
      stream_.advance(static_cast<std::size_t>(to - begin));
      if (!pace_.go_on(count)) return false;
    }
    return true;
  }

  bool faces(std::size_t body) {
    const vltPlacedMesh& placed = content_.mesh.bodies()[body];
    const auto first = static_cast<std::uint32_t>(content_.mesh.lists().of(body).first);
    const bool mirrors = placed.placement.mirrors();
    if (!placed.mesh->all_triangles() || content_.wide_lists) return polygons(placed, first, mirrors);
    return content_.face_colours ? triangles<true>(placed, first, mirrors) : triangles<false>(placed, first, mirrors);
  }

  template <bool colours>
  bool triangles(const vltPlacedMesh& body, std::uint32_t first, bool mirrors) {
    constexpr std::size_t size = 13 + (colours ? 4 : 0);
    const plyFaceColours looks(body);
    const std::uint32_t* corners = body.mesh->corners.data();
    const std::size_t faces = body.mesh->face_count();
    const std::size_t second = mirrors ? 2 : 1, third = mirrors ? 1 : 2;
    for (std::size_t i = 0; i < faces;) {
      const std::size_t end = std::min(faces, i + entries_at_once);
      const std::size_t count = end - i;
      char* to = stream_.reserve(count * size);
      for (; i < end; ++i, corners += 3) {
        put(to, std::uint8_t{3});
        put(to, first + corners[0]);
        put(to, first + corners[second]);
        put(to, first + corners[third]);
        if constexpr (colours) put(to, looks.of(i));
      }
      stream_.advance(count * size);
      if (!pace_.go_on(count)) return false;
    }
    return true;
  }

  bool polygons(const vltPlacedMesh& body, std::uint32_t first, bool mirrors) {
    const plyFaceColours looks(body);
    const std::size_t faces = body.mesh->face_count();
    for (std::size_t i = 0; i < faces; ++i) {
      polygon(body.mesh->face(i), first, mirrors);
      if (content_.face_colours) {
        char* to = stream_.reserve(4);
        put(to, looks.of(i));
        stream_.advance(4);
      }
      if (!pace_.go_on(1)) return false;
    }
    return true;
  }

  void polygon(std::span<const std::uint32_t> corners, std::uint32_t first, bool mirrors) {
    const std::size_t size = corners.size();
    char* begin = stream_.reserve(4);
    char* to = begin;
    if (content_.wide_lists) {
      put(to, static_cast<std::uint32_t>(size));
    } else {
      put(to, static_cast<std::uint8_t>(size));
    }
    stream_.advance(static_cast<std::size_t>(to - begin));
    for (std::size_t i = 0; i < size;) {
      const std::size_t end = std::min(size, i + entries_at_once);
      to = stream_.reserve((end - i) * 4);
      begin = to;
      for (; i < end; ++i) put(to, first + corners[mirrors && i > 0 ? size - i : i]);
      stream_.advance(static_cast<std::size_t>(to - begin));
    }
  }

  const plyContent& content_;
  velabsOfStream& stream_;
  plyPace pace_;
};

}  // namespace

velabsResult ply_write_binary(const plyContent& content, velabsOfStream& stream, velabsOutput& output) {
  return BinaryWriter(content, stream, output).write();
}
