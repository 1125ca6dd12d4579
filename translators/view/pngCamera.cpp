#include "pngCamera.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace {

constexpr double share_of_picture = 0.92;

struct Named {
  std::string_view name;
  double turn, rise;  // degrees: around the up axis, and above the ground
};

// The view along the diagonal of a cube.
constexpr double iso_rise = 35.26438968;

constexpr Named views[] = {{"iso", 45, iso_rise}, {"front", 0, 0}, {"back", 180, 0},  {"left", -90, 0},
                           {"right", 90, 0},      {"top", 0, 90},  {"bottom", 0, -90}};

pngDirection for_up(annUpAxis up, const pngDirection& direction) {
  const annTransform turn = ann_turn(annUP_Z, up);
  return {turn.point(direction.right), turn.point(direction.up), turn.point(direction.towards)};
}

}  // namespace

std::optional<pngDirection> png_direction(std::string_view view) {
  const auto* named = std::find_if(std::begin(views), std::end(views), [&](const Named& v) { return v.name == view; });
  if (named == std::end(views)) return std::nullopt;
  const double turn = named->turn * std::numbers::pi / 180, rise = named->rise * std::numbers::pi / 180;
  const double ct = std::cos(turn), st = std::sin(turn), cr = std::cos(rise), sr = std::sin(rise);
  return pngDirection{{ct, st, 0}, {-st * sr, ct * sr, cr}, {st * cr, -ct * cr, sr}};
}

pngCamera::pngCamera(const pngDirection& direction, const viewScene& scene, const std::vector<viewMesh>& meshes,
                     double width, double height)
    : axes_(for_up(scene.up, direction)), half_width_(width / 2), half_height_(height / 2) {
  constexpr double far_away = std::numeric_limits<double>::infinity();
  annBox box{{far_away, far_away, far_away}, {-far_away, -far_away, -far_away}};
  for (const viewScene::Node& node : scene.nodes) {
    if (node.mesh == viewScene::none) continue;
    for (const annVector& point : meshes[node.mesh].points) {
      box.include(this->direction(node.placement.point(point)));
    }
  }
  middle_ = box.min * 0.5 + box.max * 0.5;
  const double wide = box.max.x - box.min.x, high = box.max.y - box.min.y;
  scale_ = share_of_picture * std::min(width / wide, height / high);
}

bool pngCamera::is_usable() const {
  return std::isfinite(scale_) && scale_ > 0 && std::isfinite(ann_dot(middle_, middle_));
}

pngPoint pngCamera::point(annVector p) const {
  const annVector seen = direction(p) - middle_;
  return {static_cast<float>(half_width_ + seen.x * scale_), static_cast<float>(half_height_ - seen.y * scale_),
          static_cast<float>(seen.z * scale_)};
}

annVector pngCamera::direction(annVector d) const {
  return {ann_dot(d, axes_.right), ann_dot(d, axes_.up), ann_dot(d, axes_.towards)};
}
