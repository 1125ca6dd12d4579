#pragma once

#include <optional>
#include <string_view>

#include "plyMesh.h"
#include "plyPlan.h"

// Takes runs of triangles at once from the binary forms, for faces that are one list of 32-bit numbers behind a count
// of one byte, with numbers of fixed size before and behind it. Whatever is no plain triangle ends a run and is left to
// those who take one entry at a time.
class plyTriangles {
 public:
  // None when the element is made otherwise.
  static std::optional<plyTriangles> make(const plyPlan& plan);

  std::size_t entry_size() const { return lead_ + 13 + trail_; }

  // Adds the triangles at the front of `bytes`, at most `most`, to a mesh of nothing but triangles. Gives their number.
  template <bool swapped>
  std::size_t take(std::string_view bytes, std::size_t most, plyMesh& mesh) const;

 private:
  struct Component {
    plyType type;
    std::size_t offset;
  };

  template <bool swapped>
  void colours(const char* at, std::size_t count, plyMesh& mesh) const;

  std::size_t lead_ = 0, trail_ = 0;
  std::array<std::optional<Component>, 4> colour_;
};
