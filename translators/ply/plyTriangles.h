#pragma once

#include <optional>
#include <string_view>

#include "plyMesh.h"
#include "plyPlan.h"

// Reads many triangles at once from the binary forms. Faces must be one list of 32-bit numbers with a count of one
// byte, with numbers of fixed size before and after it. An entry that is not a simple triangle ends the run and is
// left to the reader of single entries.
class plyTriangles {
 public:
  // Empty when the element has another layout.
  static std::optional<plyTriangles> make(const plyPlan& plan);

  std::size_t entry_size() const { return lead_ + 13 + trail_; }

  // Adds the triangles at the start of `bytes`, at most `most`, to a mesh of triangles. Returns their number.
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
