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

// Finds points inside a triangle among many of which some count and others do not. A balanced tree of boxes, so that
// points which crowd in one corner do no harm; each change and each search looks at few of them.
class annPointTree {
 public:
  static constexpr std::uint32_t none = 0xffffffff;

  // No point counts at first. The points must stay where they are while the tree is in use.
  void build(std::span<const annPlanePoint> points);

  // To be called only when the point did not, or did, count before.
  void count_in(std::uint32_t point);
  void count_out(std::uint32_t point);

  // A point that counts and lies inside or on the border of a counter-clockwise triangle, but not on one of its
  // corners; `none` when there is none.
  std::uint32_t find_inside(annPlanePoint a, annPlanePoint b, annPlanePoint c);

  // How many boxes all searches since `build` have looked at. Points that crowd in one place, or whose areas vanish
  // between two numbers, make a search look at most of them.
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
  std::vector<std::uint32_t> members_;  // leaf after leaf; within a leaf those that count stand first
  std::vector<std::uint32_t> leaf_of_;  // for each point
  std::vector<Box> boxes_;              // a heap: box i has the halves 2i and 2i + 1, box 1 is the whole
  std::size_t levels_ = 0;              // the leaves are level `levels_`
  std::size_t steps_ = 0;
};
