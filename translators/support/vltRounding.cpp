#include "vltRounding.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>

#include "vltVertexLists.h"

namespace {

constexpr double share_of_size = 1e-5;
constexpr double float_rounding = 0x1p-24;  // maximum relative error

// Not inlined: gcc 12 vectorises the conversion to float and back, and then uses the number before rounding.
[[gnu::noinline]] float rounded(double value) {
  return static_cast<float>(value);
}

double largest(const annVector& v) {
  return std::max({std::fabs(v.x), std::fabs(v.y), std::fabs(v.z)});
}

// Statistics of the points seen so far.
class Seen {
 public:
  void take(const annVector& point) {
    if (!box_) {
      box_ = annBox{point, point};
      first_ = largest(point);
    }
    box_->include(point);
    auto moved = [](double value) { return std::fabs(value - static_cast<double>(rounded(value))); };
    moved_ = std::max({moved_, moved(point.x), moved(point.y), moved(point.z)});
  }

  double size() const {
    const annVector across = box_->max - box_->min;
    return std::sqrt(ann_dot(across, across));
  }
  double moved() const { return moved_; }
  bool too_far() const { return box_ && size() > 0 && moved_ > share_of_size * size() && std::isfinite(moved_); }

  // True when further points cannot change the result: no point is farther from the origin than the first one plus the
  // diagonal, and the allowed error grows with the diagonal.
  bool never_too_far() const { return (first_ + size()) * float_rounding < share_of_size * size(); }

 private:
  std::optional<annBox> box_;
  double first_ = 0;
  double moved_ = 0;
};

// False when no more points need to be checked.
bool look_at(const vltVertexList& list, Seen& seen) {
  constexpr std::size_t step = 256;
  const std::vector<annVector>& points = list.vertices->points;
  const bool placed = !list.placement.is_identity();
  for (std::size_t i = 0; i < points.size(); ++i) {
    seen.take(placed ? list.placement.point(points[i]) : points[i]);
    if (i % step == step - 1 && seen.never_too_far()) return false;
  }
  return points.empty() || !seen.never_too_far();
}

}  // namespace

void vlt_tell_rounding(const std::vector<vltPlacedMesh>& bodies, const char* format, const char* instead,
                       velabsOutput& output) {
  Seen seen;
  const vltVertexLists lists(bodies);
  for (const vltVertexList& list : lists.all()) {
    if (!look_at(list, seen)) return;
  }
  if (!seen.too_far()) return;
  char moved[32];
  std::snprintf(moved, sizeof moved, "%.2g", seen.moved());
  output.message(velabsWARNING, utString("the model lies so far from the origin that the short numbers of ") + format +
                                    " move its points by up to " + moved + "; " + instead +
                                    " holds them as they are, and a model that is moved to the origin loses nothing");
}
