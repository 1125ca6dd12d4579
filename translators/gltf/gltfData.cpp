#include "gltfData.h"

#include <algorithm>
#include <bit>
#include <numeric>

#include "gltfUri.h"

static_assert(std::endian::native == std::endian::little);

namespace {

constexpr std::size_t block = std::size_t{1} << 14;  // elements that are written at once
constexpr std::size_t progress_step = std::size_t{1} << 21;
constexpr std::size_t bytes_in_piece = 3 * 4096;  // of base64

}  // namespace

void gltfSink::put(std::string_view bytes) {
  if (!base64_) return stream_.write(bytes);
  if (!rest_.empty()) {
    const std::size_t missing = std::min(3 - rest_.size(), bytes.size());
    rest_ += bytes.substr(0, missing);
    bytes.remove_prefix(missing);
    if (rest_.size() < 3) return;
    finish();
  }
  const std::size_t whole = bytes.size() / 3 * 3;
  for (std::size_t at = 0; at < whole; at += bytes_in_piece) {
    const std::string_view piece = bytes.substr(at, std::min(bytes_in_piece, whole - at));
    char* const begin = stream_.reserve(piece.size() / 3 * 4);
    char* end = begin;
    gltf_encode_base64(piece, end);
    stream_.advance(static_cast<std::size_t>(end - begin));
  }
  rest_ = bytes.substr(whole);
}

void gltfSink::finish() {
  char letters[4];
  char* end = letters;
  gltf_encode_base64(rest_, end);
  stream_.write({letters, static_cast<std::size_t>(end - letters)});
  rest_.clear();
}

gltfDataWriter::gltfDataWriter(const gltfPlan& plan, gltfSink& sink, velabsOutput& output)
    : plan_(plan), sink_(sink), progress_(output, std::max<std::size_t>(plan.data_size, 1), progress_step) {}

bool gltfDataWriter::write() {
  for (const gltfPlan::Mesh& mesh : plan_.meshes) {
    if (mesh.first_of_pool && !write_pool(plan_.pools[mesh.pool])) return false;
    if (!write_groups(mesh)) return false;
  }
  sink_.finish();
  return sink_.good();
}

bool gltfDataWriter::write_pool(const gltfPlan::Pool& pool) {
  const annVertices& vertices = *pool.vertices;
  const double factor = plan_.factor;
  auto put_points = [&](std::size_t i, float* to) {
    const annVector& p = vertices.points[i];
    to[0] = static_cast<float>(p.x * factor);
    to[1] = static_cast<float>(p.y * factor);
    to[2] = static_cast<float>(p.z * factor);
  };
  auto put_normals = [&](std::size_t i, float* to) {
    // glTF cannot store a missing normal, so a zero normal is replaced.
    const annVector n = vertices.normals[i] == annVector{} ? annVector{0, 0, 1} : vertices.normals[i];
    to[0] = static_cast<float>(n.x);
    to[1] = static_cast<float>(n.y);
    to[2] = static_cast<float>(n.z);
  };
  if (!write_floats(vertices.points.size(), 3, put_points)) return false;
  if (pool.normals && !write_floats(vertices.normals.size(), 3, put_normals)) return false;
  return !pool.colours || write_colours(vertices.colours, plan_.accessors[*pool.colours].components);
}

bool gltfDataWriter::write_colours(const std::vector<annColour>& colours, std::size_t components) {
  // Neighbours often have the same colour, and the conversion is slow.
  annColour last;
  float linear[3]{};
  return write_floats(colours.size(), components, [&](std::size_t i, float* to) {
    const annColour& colour = colours[i];
    if (colour.red != last.red || colour.green != last.green || colour.blue != last.blue) {
      linear[0] = static_cast<float>(gltf_linear(colour.red));
      linear[1] = static_cast<float>(gltf_linear(colour.green));
      linear[2] = static_cast<float>(gltf_linear(colour.blue));
      last = colour;
    }
    std::copy(linear, linear + 3, to);
    if (components == 4) to[3] = colour.opacity;
  });
}

bool gltfDataWriter::write_groups(const gltfPlan::Mesh& planned) {
  const annMesh& mesh = *planned.mesh;
  const std::size_t faces = mesh.face_count();
  const std::size_t groups = planned.groups.size();
  auto group_of = [&](std::size_t face) {
    return planned.group_of_material[std::min<std::size_t>(mesh.face_material(face), mesh.materials.size())];
  };
  // The faces sorted by group, in their old order within each group.
  std::vector<std::uint32_t> order;
  std::vector<std::size_t> ends(groups + 1);
  ends[groups] = faces;
  if (groups > 1) {
    std::vector<std::size_t> at(groups + 1);
    for (std::size_t face = 0; face < faces; ++face) ++at[group_of(face) + 1];
    std::partial_sum(at.begin(), at.end(), at.begin());
    std::copy(at.begin(), at.end(), ends.begin());
    order.resize(faces);
    for (std::size_t face = 0; face < faces; ++face) order[at[group_of(face)]++] = static_cast<std::uint32_t>(face);
  }
  for (std::size_t group = 0; group < groups; ++group) {
    const bool is_small = plan_.accessors[planned.groups[group].indices].type == gltfUINT16;
    const std::uint32_t* faces_in_order = order.empty() ? nullptr : order.data();
    const bool done = is_small ? write_triangles<std::uint16_t>(mesh, faces_in_order, ends[group], ends[group + 1])
                               : write_triangles<std::uint32_t>(mesh, faces_in_order, ends[group], ends[group + 1]);
    if (!done) return false;
  }
  return true;
}

template <typename Index>
bool gltfDataWriter::write_triangles(const annMesh& mesh, const std::uint32_t* order, std::size_t first,
                                     std::size_t last) {
  std::vector<Index> corners;
  corners.reserve(3 * block + 3);
  auto flush = [&] {
    const bool good = put(corners.data(), corners.size() * sizeof(Index));
    corners.clear();
    return good;
  };
  for (std::size_t i = first; i < last; ++i) {
    const auto face = mesh.face(order ? order[i] : i);
    if (face.size() == 3) {
      for (std::uint32_t corner : face) corners.push_back(static_cast<Index>(corner));
    } else {
      for (const auto& triangle : triangulator_.triangles(mesh.vertices->points, face)) {
        for (std::uint32_t corner : triangle) corners.push_back(static_cast<Index>(corner));
      }
    }
    if (corners.size() >= 3 * block && !flush()) return false;
  }
  return flush() && align();
}

template <typename Fill>
bool gltfDataWriter::write_floats(std::size_t count, std::size_t components, Fill fill) {
  std::vector<float> numbers(block * components);
  for (std::size_t first = 0; first < count; first += block) {
    const std::size_t last = std::min(first + block, count);
    for (std::size_t i = first; i < last; ++i) fill(i, numbers.data() + (i - first) * components);
    if (!put(numbers.data(), (last - first) * components * sizeof(float))) return false;
  }
  return true;
}

bool gltfDataWriter::put(const void* bytes, std::size_t size) {
  sink_.put({static_cast<const char*>(bytes), size});
  written_ += size;
  return sink_.good() && progress_.reached(written_);
}

bool gltfDataWriter::align() {
  constexpr char zeros[3]{};
  return written_ % 4 == 0 || put(zeros, 4 - written_ % 4);
}
