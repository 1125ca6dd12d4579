#include "plyMesh.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "vltColours.h"
#include "vltNormals.h"

namespace {

constexpr std::string_view odd_colour = "a colour that is no number is taken as 0";

// Real components are on a scale of 1 or 255, selected by their maximum in the file.
template <typename Colours, typename ColourOf>
void bring_into_range(Colours& colours, std::array<float, 4> full, bool has_opacity, ColourOf colour_of) {
  float most = 0, most_opacity = 0;
  for (auto& each : colours) {
    const annColour& c = colour_of(each);
    if (full[0] == 0) most = std::max(most, c.red);
    if (full[1] == 0) most = std::max(most, c.green);
    if (full[2] == 0) most = std::max(most, c.blue);
    most_opacity = std::max(most_opacity, c.opacity);
  }
  for (std::size_t i = 0; i < 4; ++i) {
    if (full[i] == 0) full[i] = vlt_full_component(i < 3 ? most : most_opacity);
  }
  auto level = [](float component, float whole) { return std::clamp(component / whole, 0.0F, 1.0F); };
  for (auto& each : colours) {
    annColour& c = colour_of(each);
    c = {level(c.red, full[0]), level(c.green, full[1]), level(c.blue, full[2]),
         has_opacity ? level(c.opacity, full[3]) : 1.0F};
  }
}

bool is_finite(const annVector& v) {
  return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

}  // namespace

void plyMesh::begin(const plyPlan& plan, std::size_t bytes) {
  const plyElement& element = plan.element();
  annVertices& vertices = *mesh_->vertices;
  if (plan.kind() == plyKind::vertices) {
    normals_ = plan.has(plyNX);
    colours_ = plan.has(plyRED);
    full_vertex_ = plan.full_colour();
    vertex_opacity_ = plan.has(plyOPACITY);
    vertices.points.reserve(element.count);
    if (normals_) vertices.normals.reserve(element.count);
    if (colours_) vertices.colours.reserve(element.count);
  } else if (plan.kind() == plyKind::faces) {
    face_colours_ = plan.has(plyRED);
    full_face_ = plan.full_colour();
    face_opacity_ = plan.has(plyOPACITY);
    // Limited by the file size: a corner takes at least one byte.
    mesh_->corners.reserve(std::min<std::size_t>(3 * element.count, bytes));
    if (face_colours_) {
      looks_.reserve(mesh_->face_count() + std::min<std::size_t>(element.count, bytes));
      looks_.resize(mesh_->face_count(), annMesh::no_material);
    }
  }
}

bool plyMesh::vertex(const plyEntry& entry) {
  const double* v = entry.values.data();
  const annVector point = annVector{v[plyX], v[plyY], v[plyZ]} * factor_;
  if (!is_finite(point)) {
    reason_ = "a coordinate is no finite number";
    return false;
  }
  mesh_->vertices->points.push_back(point);
  if (normals_) mesh_->vertices->normals.push_back({v[plyNX], v[plyNY], v[plyNZ]});
  if (colours_) mesh_->vertices->colours.push_back(raw_colour(v + plyRED));
  return true;
}

bool plyMesh::face(const plyEntry& entry) {
  if (entry.corners.size() < 3) {
    ++faces_left_out_;
    return true;
  }
  if (!take_corners(entry) || !has_room(corners_.size())) return false;
  mesh_->add_face(corners_);
  if (face_colours_) {
    std::array<double, 4> components;
    std::copy_n(entry.values.begin() + plyRED, 4, components.begin());
    add_face_colour(components);
  }
  return true;
}

bool plyMesh::strip(const plyEntry& entry) {
  std::uint32_t last[2] = {};
  std::size_t length = 0;
  for (long long number : entry.corners) {
    if (number == -1) {
      length = 0;
      continue;
    }
    if (!is_vertex(number) || !has_room(3)) return false;
    const auto next = static_cast<std::uint32_t>(number);
    if (length >= 2 && last[0] != last[1] && next != last[0] && next != last[1]) {
      const bool turned = length % 2 == 1;
      mesh_->add_face(std::array{last[turned ? 1 : 0], last[turned ? 0 : 1], next});
    }
    last[0] = last[1];
    last[1] = next;
    ++length;
  }
  return true;
}

bool plyMesh::take_corners(const plyEntry& entry) {
  corners_.clear();
  for (long long number : entry.corners) {
    if (!is_vertex(number)) return false;
    corners_.push_back(static_cast<std::uint32_t>(number));
  }
  return true;
}

bool plyMesh::is_vertex(long long number) {
  if (number >= 0 && static_cast<unsigned long long>(number) < vertex_count_) return true;
  // Placeholder for a number that is not an integer.
  if (number == std::numeric_limits<long long>::min()) {
    reason_ = "a corner is no whole number";
  } else {
    reason_ = "there is no vertex " + std::to_string(number) + ": the file has " + std::to_string(vertex_count_) +
              ", counted from 0";
  }
  return false;
}

bool plyMesh::has_room(std::size_t corners) {
  if (mesh_->corners.size() + corners < annMesh::no_material) return true;
  reason_ = "more corners than a mesh can number";
  return false;
}

annColour plyMesh::raw_colour(const double* components) {
  std::array<float, 4> c{};
  for (std::size_t i = 0; i < 4; ++i) {
    const auto component = static_cast<float>(components[i]);
    if (std::isfinite(component)) {
      c[i] = component;
    } else {
      findings_.count(velabsWARNING, odd_colour);
    }
  }
  return {c[0], c[1], c[2], c[3]};
}

void plyMesh::finish() {
  vlt_settle_normals(mesh_->vertices->normals, findings_);
  finish_vertex_colours();
  finish_materials();
  if (faces_left_out_ > 0) {
    findings_.count(velabsWARNING, "faces with fewer than three corners are left out", 0, faces_left_out_);
  }
}

// Colours of vertices that were read in blocks are not checked yet.
void plyMesh::drop_odd_components() {
  for (annColour& colour : mesh_->vertices->colours) {
    for (float* component : {&colour.red, &colour.green, &colour.blue, &colour.opacity}) {
      if (std::isfinite(*component)) continue;
      *component = 0;
      findings_.count(velabsWARNING, odd_colour);
    }
  }
}

void plyMesh::finish_vertex_colours() {
  drop_odd_components();
  bring_into_range(mesh_->vertices->colours, full_vertex_, vertex_opacity_,
                   [](annColour& colour) -> annColour& { return colour; });
}

void plyMesh::finish_materials() {
  bring_into_range(mesh_->materials, full_face_, face_opacity_,
                   [](annMaterial& look) -> annColour& { return look.colour; });
  if (looks_.empty()) return;
  looks_.resize(mesh_->face_count(), annMesh::no_material);
  mesh_->face_materials = std::move(looks_);
}
