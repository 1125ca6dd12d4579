#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

// A point in the plane of a face.
struct annPlanePoint {
  double x = 0;
  double y = 0;

  friend bool operator==(const annPlanePoint&, const annPlanePoint&) = default;
};

// Twice the area of a triangle, positive when a, b, c run counter-clockwise.
inline double ann_plane_area(annPlanePoint a, annPlanePoint b, annPlanePoint c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

// A k-d tree of 2D points that can be enabled and disabled; finds an enabled point inside a triangle. The tree is
// balanced for any distribution of points; each change and most searches visit few boxes.
class annPointTree {
 public:
  static constexpr std::uint32_t none = 0xffffffff;

  // All points start disabled. The array of points must not move while the tree is in use.
  void build(std::span<const annPlanePoint> points);

  // Enable or disable a point. Call only for a point that is disabled or enabled, respectively.
  void count_in(std::uint32_t point);
  void count_out(std::uint32_t point);

  // An enabled point inside or on the border of a counter-clockwise triangle, but not at one of its corners; `none` if
  // not found.
  std::uint32_t find_inside(annPlanePoint a, annPlanePoint b, annPlanePoint c);

  // The number of boxes visited by all searches since `build`. A search visits most boxes if points are very close to
  // each other or areas vanish in rounding.
  std::size_t steps() const { return steps_; }

 private:
  struct Box {
    annPlanePoint min, max;
    std::uint32_t counting = 0;
  };

  std::size_t begin_of(std::size_t level, std::size_t index) const { return members_.size() * index >> level; }
  void arrange();
  void make_boxes();
  void move_in_leaf(std::uint32_t point, bool counts);

  std::span<const annPlanePoint> points_;
  std::vector<std::uint32_t> members_;  // leaf after leaf; enabled points come first in each leaf
  std::vector<std::uint32_t> leaf_of_;  // for each point
  std::vector<Box> boxes_;              // a heap: box i has the halves 2i and 2i + 1, box 1 is the root
  std::size_t levels_ = 0;              // the leaves are level `levels_`
  std::size_t steps_ = 0;
};
