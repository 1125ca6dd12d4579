#include "annEarCutter.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int most_forced_cuts = 64;

// Ragged faces of a hundred thousand corners need some hundred steps per corner.
constexpr std::size_t most_steps_per_corner = 1000;

}  // namespace

void annEarCutter::cut(std::span<const annVector> points, std::span<const std::uint32_t> face, annVector normal,
                       std::vector<std::array<std::uint32_t, 3>>& triangles) {
  face_ = face;
  triangles_ = &triangles;
  const bool has_extent = project(points, face, normal);
  begin();
  const std::size_t most_steps = most_steps_per_corner * face.size();
  int forced = has_extent ? 0 : most_forced_cuts;
  while (left_ > 3 && forced < most_forced_cuts && tree_.steps() < most_steps) {
    if (queue_front_ == queue_.size()) {
      force_one();
      ++forced;
      continue;
    }
    const Entry entry = queue_[queue_front_++];
    if (corners_[entry.corner].version == entry.version && !corners_[entry.corner].gone) look_at(entry.corner);
  }
  // Cut every second corner, so that the rest does not become one thin fan.
  for (std::uint32_t corner = any_; left_ > 2; corner = corners_[corners_[corner].next].next) cut_off(corner);
}

bool annEarCutter::project(std::span<const annVector> points, std::span<const std::uint32_t> face, annVector normal) {
  // Projects along the axis closest to the normal. Coordinates are relative to the first corner and scaled to size 1 in
  // both directions, so that products stay in range also for narrow faces.
  const double x = std::fabs(normal.x), y = std::fabs(normal.y), z = std::fabs(normal.z);
  const annVector origin = points[face[0]];
  points_.clear();
  annPlanePoint extent;
  for (std::uint32_t number : face) {
    const annVector p = points[number] - origin;
    annPlanePoint flat{p.x, p.y};
    double sign = normal.z;
    if (x > y && x > z) {
      flat = {p.y, p.z};
      sign = normal.x;
    } else if (y > z) {
      flat = {p.z, p.x};
      sign = normal.y;
    }
    if (sign < 0) std::swap(flat.x, flat.y);
    points_.push_back(flat);
    extent = {std::max(extent.x, std::fabs(flat.x)), std::max(extent.y, std::fabs(flat.y))};
  }
  if (!(extent.x > 0) || !(extent.y > 0) || !std::isfinite(extent.x) || !std::isfinite(extent.y)) return false;
  for (annPlanePoint& p : points_) p = {p.x / extent.x, p.y / extent.y};
  return true;
}

void annEarCutter::begin() {
  const auto count = static_cast<std::uint32_t>(face_.size());
  corners_.assign(count, {});
  queue_.clear();
  queue_front_ = 0;
  waiting_.clear();
  any_ = 0;
  left_ = count;
  for (std::uint32_t i = 0; i < count; ++i) {
    corners_[i].previous = i == 0 ? count - 1 : i - 1;
    corners_[i].next = i + 1 == count ? 0 : i + 1;
  }
  tree_.build(points_);
  for (std::uint32_t i = 0; i < count; ++i) {
    corners_[i].blocks = !(area_at(i) > 0);
    if (corners_[i].blocks) {
      tree_.count_in(i);
    } else {
      queue_.push_back({i, 0});
    }
  }
}

double annEarCutter::area_at(std::uint32_t corner) const {
  return ann_plane_area(points_[corners_[corner].previous], points_[corner], points_[corners_[corner].next]);
}

void annEarCutter::look_at(std::uint32_t corner) {
  const Corner& c = corners_[corner];
  const std::uint32_t blocking = tree_.find_inside(points_[c.previous], points_[corner], points_[c.next]);
  if (blocking == annPointTree::none) {
    cut_off(corner);
    return;
  }
  waiting_.push_back({{corner, c.version}, corners_[blocking].first_waiting});
  corners_[blocking].first_waiting = static_cast<std::uint32_t>(waiting_.size() - 1);
}

void annEarCutter::cut_off(std::uint32_t corner) {
  Corner& c = corners_[corner];
  triangles_->push_back({face_[c.previous], face_[corner], face_[c.next]});
  c.gone = true;
  corners_[c.previous].next = c.next;
  corners_[c.next].previous = c.previous;
  any_ = c.next;
  --left_;
  if (c.blocks) stop_blocking(corner);
  neighbour_gone(c.previous);
  neighbour_gone(c.next);
}

void annEarCutter::neighbour_gone(std::uint32_t corner) {
  Corner& c = corners_[corner];
  ++c.version;
  if (!(area_at(corner) > 0)) {
    if (!c.blocks) tree_.count_in(corner);
    c.blocks = true;
    return;
  }
  if (c.blocks) stop_blocking(corner);
  queue_.push_back({corner, c.version});
}

void annEarCutter::stop_blocking(std::uint32_t corner) {
  Corner& c = corners_[corner];
  c.blocks = false;
  tree_.count_out(corner);
  for (std::uint32_t i = c.first_waiting; i != annPointTree::none; i = waiting_[i].next) {
    queue_.push_back(waiting_[i].entry);
  }
  c.first_waiting = annPointTree::none;
}

void annEarCutter::force_one() {
  // Cut all straight corners first, because their triangles have no area. Otherwise cut any corner that is not reflex.
  bool found = false;
  std::uint32_t corner = any_, convex = any_;
  for (std::size_t rest = left_; rest > 0 && left_ > 3; --rest) {
    const std::uint32_t next = corners_[corner].next;
    const double area = area_at(corner);
    if (area == 0) {
      cut_off(corner);
      found = true;
    } else if (area > 0) {
      convex = corner;
    }
    corner = next;
  }
  if (!found) cut_off(convex);
}
