#include "pngPainter.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr annColour colour_of_parts{0.74F, 0.78F, 0.82F, 1};
constexpr pngColour colour_of_lines{0.13F, 0.16F, 0.2F};

// Lines closer than this many line widths are drawn fainter, so that small parts keep their colour.
constexpr double lines_apart = 8;
constexpr float faintest = 0.02F;

using Normal = viewMesh::Normal;

float dot(const Normal& a, const Normal& b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}

Normal unit(annVector v) {
  const double length = std::sqrt(ann_dot(v, v));
  if (!(length > 0) || !std::isfinite(length)) return {};
  return {static_cast<float>(v.x / length), static_cast<float>(v.y / length), static_cast<float>(v.z / length)};
}

float part(float value) {
  return value > 0 ? std::min(value, 1.0F) : 0.0F;
}

// The normal in picture directions, towards the eye.
Normal facet_of(const pngPoint& a, const pngPoint& b, const pngPoint& c) {
  const double bx = b.x - a.x, by = a.y - b.y, bz = b.z - a.z;
  const double cx = c.x - a.x, cy = a.y - c.y, cz = c.z - a.z;
  const annVector cross{by * cz - bz * cy, bz * cx - bx * cz, bx * cy - by * cx};
  return unit(cross.z < 0 ? cross * -1 : cross);
}

}  // namespace

pngPainter::pngPainter(const viewScene& scene, const std::vector<viewMesh>& meshes, const pngCamera& camera,
                       float line_width)
    : scene_(scene),
      meshes_(meshes),
      camera_(camera),
      line_width_(line_width),
      sky_(camera.direction(scene.up == annUP_Y ? annVector{0, 1, 0} : annVector{0, 0, 1})) {
  for (const viewScene::Node& node : scene.nodes) {
    Extent& extent = extents_.emplace_back(Extent{0, -1});
    if (node.mesh == viewScene::none || meshes[node.mesh].corners.empty()) continue;
    const annBox& box = meshes[node.mesh].box;
    for (unsigned corner = 0; corner < 8; ++corner) {
      const annVector p{corner & 1 ? box.max.x : box.min.x, corner & 2 ? box.max.y : box.min.y,
                        corner & 4 ? box.max.z : box.min.z};
      const float y = camera.point(node.placement.point(p)).y;
      extent = corner == 0 ? Extent{y, y} : Extent{std::min(extent.top, y), std::max(extent.bottom, y)};
    }
  }
}

void pngPainter::paint(pngBand& band) {
  clear_.clear();
  for (std::size_t i = 0; i < scene_.nodes.size(); ++i) {
    if (reaches(i, band)) paint_surface(scene_.nodes[i], band);
  }
  // Faint lines blend with the picture, so they are drawn after all surfaces.
  for (std::size_t i = 0; line_width_ > 0 && i < scene_.nodes.size(); ++i) {
    if (reaches(i, band)) paint_lines(scene_.nodes[i], band);
  }
  auto depth = [](const pngTriangle& t) { return t.corners[0].at.z + t.corners[1].at.z + t.corners[2].at.z; };
  std::stable_sort(clear_.begin(), clear_.end(),
                   [&](const pngTriangle& a, const pngTriangle& b) { return depth(a) < depth(b); });
  for (const pngTriangle& triangle : clear_) band.draw(triangle);
}

bool pngPainter::reaches(std::size_t node, const pngBand& band) const {
  const Extent& extent = extents_[node];
  return extent.top <= extent.bottom && band.reaches(extent.top - line_width_, extent.bottom + line_width_);
}

void pngPainter::paint_surface(const viewScene::Node& node, pngBand& band) {
  const viewMesh& mesh = meshes_[node.mesh];
  place(node, mesh);
  for (const viewMesh::Range& range : mesh.ranges) {
    const bool own = range.material == annMesh::no_material;
    const auto& materials = scene_.meshes[node.mesh]->materials;
    paint_range(mesh, range, own ? node.colour.value_or(colour_of_parts) : materials[range.material].colour, band);
  }
}

void pngPainter::paint_lines(const viewScene::Node& node, pngBand& band) {
  const viewMesh& mesh = meshes_[node.mesh];
  const float opacity = opacity_of_lines(node);
  if (!(opacity > faintest)) return;
  place(node, mesh);
  for (std::size_t i = 0; i < mesh.edges.size(); i += 2) {
    band.draw_line(points_[mesh.edges[i]], points_[mesh.edges[i + 1]], line_width_, colour_of_lines, opacity);
  }
}

float pngPainter::opacity_of_lines(const viewScene::Node& node) const {
  const auto& m = node.placement.m;
  const double volume = ann_dot({m[0], m[4], m[8]}, ann_cross({m[1], m[5], m[9]}, {m[2], m[6], m[10]}));
  const double spacing = meshes_[node.mesh].line_spacing * std::cbrt(std::fabs(volume)) * camera_.scale();
  const auto share = static_cast<float>(std::min(spacing / (lines_apart * static_cast<double>(line_width_)), 1.0));
  return share * share;
}

void pngPainter::place(const viewScene::Node& node, const viewMesh& mesh) {
  points_.resize(mesh.points.size());
  normals_.resize(mesh.points.size());
  const auto& m = node.placement.m;
  // Normals are transformed by the cofactors of the placement.
  const annVector x{m[0], m[4], m[8]}, y{m[1], m[5], m[9]}, z{m[2], m[6], m[10]};
  const annVector nx = camera_.direction(ann_cross(y, z)), ny = camera_.direction(ann_cross(z, x)),
                  nz = camera_.direction(ann_cross(x, y));
  for (std::size_t i = 0; i < mesh.points.size(); ++i) {
    points_[i] = camera_.point(node.placement.point(mesh.points[i]));
    const Normal& n = mesh.normals[i];
    normals_[i] = unit(nx * n.x + ny * n.y + nz * n.z);
  }
}

void pngPainter::paint_range(const viewMesh& mesh, const viewMesh::Range& range, const annColour& look, pngBand& band) {
  auto colour_at = [&](std::uint32_t vertex) { return mesh.colours.empty() ? look : mesh.colours[vertex]; };
  for (std::uint32_t i = 3 * range.first; i < 3 * (range.first + range.count); i += 3) {
    const std::uint32_t* const corners = mesh.corners.data() + i;
    const pngPoint &a = points_[corners[0]], &b = points_[corners[1]], &c = points_[corners[2]];
    if (!band.reaches(std::min({a.y, b.y, c.y}), std::max({a.y, b.y, c.y}))) continue;
    const Normal facet = facet_of(a, b, c);
    pngTriangle triangle;
    triangle.opacity = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      const annColour colour = colour_at(corners[k]);
      triangle.corners[k] = {points_[corners[k]], lit(colour, normals_[corners[k]], facet)};
      triangle.opacity += part(colour.opacity) / 3;
    }
    if (triangle.opacity > 0.998F) {
      triangle.opacity = 1;
      band.draw(triangle);
    } else if (triangle.opacity > 0) {
      clear_.push_back(triangle);
    }
  }
}

// Light from the sky and the ground, and a lamp beside the eye.
pngColour pngPainter::lit(const annColour& colour, Normal normal, const Normal& facet) const {
  static const Normal lamp = unit({-0.28, 0.42, 1});
  static const Normal halfway = unit({lamp.x, lamp.y, lamp.z + 1.0});
  if (dot(normal, normal) < 0.5F) normal = facet;
  if (dot(normal, facet) < 0) normal = {-normal.x, -normal.y, -normal.z};
  const float up = static_cast<float>(normal.x * sky_.x + normal.y * sky_.y + normal.z * sky_.z);
  const float light = 0.26F + 0.16F * (0.5F + 0.5F * up) + 0.62F * std::max(dot(normal, lamp), 0.0F);
  float shine = std::max(dot(normal, halfway), 0.0F);
  for (int i = 0; i < 5; ++i) shine *= shine;
  // Light is added in linear values; a square root approximates the encoding of bytes.
  auto bright = [&](float value) {
    return std::sqrt(std::min(part(value) * part(value) * light + 0.05F * shine, 1.0F));
  };
  return {bright(colour.red), bright(colour.green), bright(colour.blue)};
}
