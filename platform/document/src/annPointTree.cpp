#include "annPointTree.h"

#include <algorithm>
#include <bit>
#include <numeric>

namespace {

constexpr std::size_t leaf_size = 8;

// True if the whole box is on the right of the line from a to b.
bool right_of(annPlanePoint a, annPlanePoint b, annPlanePoint min, annPlanePoint max) {
  const annPlanePoint leftmost{b.y > a.y ? min.x : max.x, b.x > a.x ? max.y : min.y};
  return ann_plane_area(a, b, leftmost) < 0;
}

}  // namespace

void annPointTree::build(std::span<const annPlanePoint> points) {
  points_ = points;
  steps_ = 0;
  members_.resize(points.size());
  std::iota(members_.begin(), members_.end(), 0);
  const std::size_t leaves = std::bit_ceil((points.size() + leaf_size - 1) / leaf_size);
  levels_ = std::bit_width(leaves) - 1;
  boxes_.assign(2 * leaves, {});
  leaf_of_.resize(points.size());
  arrange();
  make_boxes();
}

void annPointTree::arrange() {
  for (std::size_t level = 0; level < levels_; ++level) {
    for (std::size_t index = 0; index < std::size_t{1} << level; ++index) {
      const auto begin = members_.begin() + static_cast<std::ptrdiff_t>(begin_of(level, index));
      const auto middle = members_.begin() + static_cast<std::ptrdiff_t>(begin_of(level + 1, 2 * index + 1));
      const auto end = members_.begin() + static_cast<std::ptrdiff_t>(begin_of(level, index + 1));
      if (begin == end) continue;
      auto by_x = [this](std::uint32_t a, std::uint32_t b) { return points_[a].x < points_[b].x; };
      auto by_y = [this](std::uint32_t a, std::uint32_t b) { return points_[a].y < points_[b].y; };
      const auto [left, right] = std::minmax_element(begin, end, by_x);
      const auto [low, high] = std::minmax_element(begin, end, by_y);
      const bool wide = points_[*right].x - points_[*left].x > points_[*high].y - points_[*low].y;
      if (wide) {
        std::nth_element(begin, middle, end, by_x);
      } else {
        std::nth_element(begin, middle, end, by_y);
      }
    }
  }
}

void annPointTree::make_boxes() {
  const std::size_t leaves = std::size_t{1} << levels_;
  for (std::size_t leaf = 0; leaf < leaves; ++leaf) {
    // A leaf without points keeps a default box that is never visited, because it has no enabled points.
    const std::size_t begin = begin_of(levels_, leaf), end = begin_of(levels_, leaf + 1);
    Box& box = boxes_[leaves + leaf];
    if (begin < end) box.min = box.max = points_[members_[begin]];
    for (std::size_t i = begin; i < end; ++i) {
      const annPlanePoint p = points_[members_[i]];
      box.min = {std::min(box.min.x, p.x), std::min(box.min.y, p.y)};
      box.max = {std::max(box.max.x, p.x), std::max(box.max.y, p.y)};
      leaf_of_[members_[i]] = static_cast<std::uint32_t>(leaf);
    }
  }
  for (std::size_t i = leaves - 1; i >= 1; --i) {
    const Box &a = boxes_[2 * i], &b = boxes_[2 * i + 1];
    boxes_[i].min = {std::min(a.min.x, b.min.x), std::min(a.min.y, b.min.y)};
    boxes_[i].max = {std::max(a.max.x, b.max.x), std::max(a.max.y, b.max.y)};
  }
}

void annPointTree::count_in(std::uint32_t point) {
  move_in_leaf(point, true);
}

void annPointTree::count_out(std::uint32_t point) {
  move_in_leaf(point, false);
}

void annPointTree::move_in_leaf(std::uint32_t point, bool counts) {
  const std::size_t leaf = leaf_of_[point];
  const auto begin = members_.begin() + static_cast<std::ptrdiff_t>(begin_of(levels_, leaf));
  const auto end = members_.begin() + static_cast<std::ptrdiff_t>(begin_of(levels_, leaf + 1));
  const std::size_t box = (std::size_t{1} << levels_) + leaf;
  const std::uint32_t border = boxes_[box].counting - (counts ? 0 : 1);
  std::iter_swap(std::find(begin, end, point), begin + border);
  for (std::size_t i = box; i >= 1; i /= 2) boxes_[i].counting += counts ? 1 : -1;
}

std::uint32_t annPointTree::find_inside(annPlanePoint a, annPlanePoint b, annPlanePoint c) {
  const annPlanePoint min{std::min({a.x, b.x, c.x}), std::min({a.y, b.y, c.y})};
  const annPlanePoint max{std::max({a.x, b.x, c.x}), std::max({a.y, b.y, c.y})};
  auto is_corner = [&](annPlanePoint p) { return p == a || p == b || p == c; };
  const std::size_t leaves = std::size_t{1} << levels_;
  std::array<std::size_t, 64> open;  // at most one waiting box for each level
  std::size_t waiting = 0;
  open[waiting++] = 1;
  while (waiting > 0) {
    ++steps_;
    const std::size_t index = open[--waiting];
    const Box& box = boxes_[index];
    if (box.counting == 0 || box.min.x > max.x || box.max.x < min.x || box.min.y > max.y || box.max.y < min.y) continue;
    if (right_of(a, b, box.min, box.max) || right_of(b, c, box.min, box.max) || right_of(c, a, box.min, box.max)) {
      continue;
    }
    // Skip points that all coincide with a corner, as in a face that returns to its centre many times.
    if (box.min == box.max && is_corner(box.min)) continue;
    if (index < leaves) {
      open[waiting++] = 2 * index + 1;
      open[waiting++] = 2 * index;
      continue;
    }
    const std::size_t begin = begin_of(levels_, index - leaves);
    for (std::size_t i = begin; i < begin + box.counting; ++i) {
      const annPlanePoint p = points_[members_[i]];
      if (is_corner(p)) continue;
      if (ann_plane_area(a, b, p) < 0 || ann_plane_area(b, c, p) < 0 || ann_plane_area(c, a, p) < 0) continue;
      return members_[i];
    }
  }
  return none;
}
