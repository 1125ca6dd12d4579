#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "annPointTree.h"
#include "annVector.h"

// Splits a face of any shape into triangles: cuts off one corner after the other, each time one whose triangle holds no
// other corner. A corner that is blocked waits for the corner that blocks it, and is not looked at until that one goes
// away, so that long and winding faces cost little more than simple ones.
//
// A face that crosses itself runs out of such corners; then one is cut all the same, and after a number of those the
// rest is cut without looking. So is that of a face where looking has taken too long for its corners. Buffers are kept
// from one face to the next.
class annEarCutter {
 public:
  // Appends corners - 2 triangles to `triangles`. `normal` is the face's Newell normal, not the null vector.
  void cut(std::span<const annVector> points, std::span<const std::uint32_t> face, annVector normal,
           std::vector<std::array<std::uint32_t, 3>>& triangles);

 private:
  struct Corner {
    std::uint32_t previous, next;
    std::uint32_t version = 0;  // raised when a neighbour goes, which makes older queue entries worthless
    std::uint32_t first_waiting = annPointTree::none;
    bool blocks = false;  // reflex or straight, so it may lie in the triangle of another
    bool gone = false;
  };
  struct Entry {
    std::uint32_t corner, version;
  };
  struct Waiting {
    Entry entry;
    std::uint32_t next;
  };

  bool project(std::span<const annVector> points, std::span<const std::uint32_t> face, annVector normal);
  void begin();
  double area_at(std::uint32_t corner) const;
  void look_at(std::uint32_t corner);
  void cut_off(std::uint32_t corner);
  void neighbour_gone(std::uint32_t corner);
  void stop_blocking(std::uint32_t corner);
  void force_one();

  std::span<const std::uint32_t> face_;
  std::vector<std::array<std::uint32_t, 3>>* triangles_ = nullptr;
  std::vector<annPlanePoint> points_;
  std::vector<Corner> corners_;
  std::vector<Entry> queue_;
  std::size_t queue_front_ = 0;
  std::vector<Waiting> waiting_;
  annPointTree tree_;
  std::uint32_t any_ = 0;  // a corner that is still there
  std::size_t left_ = 0;
};
