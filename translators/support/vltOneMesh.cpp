#include "vltOneMesh.h"

#include <algorithm>
#include <cmath>

#include "annVertexSplitting.h"
#include "vltFlag.h"

namespace {

bool is_of_byte(float level) {
  if (!(level >= 0 && level <= 1)) return false;
  return static_cast<float>(static_cast<int>(level * 255 + 0.5F)) / 255.0F == level;
}

// The results of checking coordinates.
struct Coordinates {
  bool are_floats = true;
  double sum = 0;  // 0 times NaN or infinity is NaN

  void take(const annVector& p) {
    for (double value : {p.x, p.y, p.z}) {
      are_floats &= static_cast<double>(static_cast<float>(value)) == value;
      sum += 0 * value;
    }
  }
};

}  // namespace

vltOneMesh::vltOneMesh(std::vector<vltPlacedMesh> bodies, const velTableInstance& resources)
    : bodies_(std::move(bodies)),
      face_normals_(vlt_flag(resources, "WRITE_NORMALS") && split_vertices(bodies_)),
      lists_(bodies_) {
  auto spread = [&](const char* key, auto has) {
    const auto& lists = lists_.all();
    if (!vlt_flag(resources, key) || std::none_of(lists.begin(), lists.end(), has)) return Spread::none;
    auto has_or_is_empty = [&](const vltVertexList& list) { return list.vertices->points.empty() || has(list); };
    return std::all_of(lists.begin(), lists.end(), has_or_is_empty) ? Spread::all : Spread::some;
  };
  normals_ = spread("WRITE_NORMALS", [](const vltVertexList& list) { return !list.vertices->normals.empty(); });
  colours_ = spread("WRITE_VERTEX_COLOURS", [](const vltVertexList& list) { return !list.vertices->colours.empty(); });
  if (vertex_colours()) make_colours(vlt_flag(resources, "WRITE_MATERIALS"));
  for (const vltVertexList& list : lists_.all()) {
    if (!vertex_colours()) break;
    const std::vector<annColour>& colours = colours_of(list);
    bytes_ = bytes_ && std::all_of(colours.begin(), colours.end(), vlt_is_of_bytes);
  }
  for (const vltPlacedMesh& body : bodies_) look_at_faces(body);
  face_colours_ = face_colours_ && vlt_flag(resources, "WRITE_MATERIALS");
}

bool vltOneMesh::split_vertices(std::vector<vltPlacedMesh>& bodies) {
  auto any = [&](auto test) {
    return std::any_of(bodies.begin(), bodies.end(), [&](const vltPlacedMesh& body) { return test(*body.mesh); });
  };
  const bool bare_faces = any([](const annMesh& mesh) { return !mesh.has_normals() && mesh.face_count() > 0; });
  // Points without faces cannot get normals.
  const bool bare_points = any([](const annMesh& mesh) {
    return !mesh.has_normals() && mesh.face_count() == 0 && !mesh.vertices->points.empty();
  });
  const bool fill = bare_faces && !bare_points && any([](const annMesh& mesh) { return mesh.has_normals(); });
  std::vector<std::shared_ptr<const annMesh>> meshes;
  for (const vltPlacedMesh& body : bodies) meshes.push_back(body.mesh);
  ann_split_vertices(meshes, fill ? annBARE_GET_FACE_NORMALS : annBARE_STAY);
  for (std::size_t i = 0; i < bodies.size(); ++i) bodies[i].mesh = std::move(meshes[i]);
  return fill;
}

void vltOneMesh::make_colours(bool of_faces) {
  made_colours_.resize(lists_.all().size());
  for (std::size_t number = 0; number < bodies_.size(); ++number) {
    const vltPlacedMesh& body = bodies_[number];
    std::vector<annColour>& colours = made_colours_[lists_.number_of(number)];
    if (!body.mesh->vertices->colours.empty()) continue;
    colours.resize(body.mesh->vertices->points.size(), {1, 1, 1, 1});
    for (std::size_t face = 0; of_faces && face < body.mesh->face_count(); ++face) {
      const std::optional<annColour> colour = body.face_colour(face);
      if (!colour) continue;
      for (std::uint32_t vertex : body.mesh->face(face)) colours[vertex] = *colour;
    }
  }
}

void vltOneMesh::look_at_faces(const vltPlacedMesh& body) {
  const annMesh& mesh = *body.mesh;
  const std::size_t faces = mesh.face_count();
  if (faces == 0) return;
  faces_ += faces;
  if (mesh.all_triangles()) {
    largest_face_ = std::max<std::size_t>(largest_face_, 3);
  } else {
    for (std::size_t i = 0; i < faces; ++i) largest_face_ = std::max(largest_face_, mesh.face(i).size());
  }
  const auto& looks = mesh.face_materials;
  const auto bare =
      looks.empty() ? faces : static_cast<std::size_t>(std::count(looks.begin(), looks.end(), annMesh::no_material));
  face_colours_ = face_colours_ || body.colour || bare < faces;
  all_coloured_ = all_coloured_ && (body.colour || bare == 0);
}

bool vltOneMesh::check(velabsOutput& output) {
  Coordinates seen;
  for (const vltVertexList& list : lists_.all()) {
    if (list.placement.is_identity()) {
      for (const annVector& point : list.vertices->points) seen.take(point);
    } else {
      for (const annVector& point : list.vertices->points) seen.take(list.placement.point(point));
    }
  }
  floats_suffice_ = seen.are_floats;
  if (seen.sum == 0) return true;
  output.message(velabsERROR, "a coordinate is too large for a number once it is placed and scaled");
  return false;
}

void vltOneMesh::tell_mixture(velabsOutput& output) const {
  if (face_normals_) {
    output.message(velabsNOTE, "parts without normals are written with those of their faces, because others have some");
  }
  if (normals_ == Spread::some) {
    output.message(velabsNOTE, "no normals are written: not every part has them, and one mesh has them all or none");
  }
  if (colours_ == Spread::some) {
    output.message(velabsNOTE,
                   "vertices without a colour are written in that of their faces, else white, because others have one");
  }
}

std::array<std::uint8_t, 4> vlt_bytes_of(const annColour& colour) {
  auto byte = [](float level) { return static_cast<std::uint8_t>(std::clamp(level, 0.0F, 1.0F) * 255 + 0.5F); };
  return {byte(colour.red), byte(colour.green), byte(colour.blue), byte(colour.opacity)};
}

bool vlt_is_of_bytes(const annColour& colour) {
  return is_of_byte(colour.red) && is_of_byte(colour.green) && is_of_byte(colour.blue) && is_of_byte(colour.opacity);
}
