#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "annPointTree.h"
#include "annVector.h"

// Splits a face of any shape into triangles by ear cutting: it cuts off corners whose triangle contains no other
// corner. A blocked corner waits for the corner that blocks it and is not tested again until that one no longer blocks.
// Long and winding faces therefore cost little more than simple ones.
//
// In a face that crosses itself there may be no such corner left; then any corner is cut. After a fixed number of these
// cuts, or of search steps, the remaining corners are cut without a test. Buffers are kept from one face to the next.
class annEarCutter {
 public:
  // Appends corners - 2 triangles to `triangles`. `normal` is the face's Newell normal, not the null vector.
  void cut(std::span<const annVector> points, std::span<const std::uint32_t> face, annVector normal,
           std::vector<std::array<std::uint32_t, 3>>& triangles);

 private:
  struct Corner {
    std::uint32_t previous, next;
    std::uint32_t version = 0;  // increased when a neighbour is cut off, which invalidates older queue entries
    std::uint32_t first_waiting = annPointTree::none;
    bool blocks = false;  // reflex or straight, so it may be inside the triangle of another corner
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
  std::uint32_t any_ = 0;  // a corner that is not cut off yet
  std::size_t left_ = 0;
};
