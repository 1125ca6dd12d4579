#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "annVertices.h"
#include "apLargePages.h"
#include "vltOnce.h"

// Parses the vertex statements of a file. All meshes of the file share one vertex list, in the order of the file.
class objVertices {
 public:
  // The file's size limits the reserved address space; memory is used as it fills.
  objVertices(double factor, std::size_t file_size, vltOnce& findings, velabsOutput& output)
      : factor_(factor), findings_(findings), output_(output) {
    constexpr std::size_t usual_line = 20;
    ap_reserve_large(shared_->points, file_size / usual_line);
  }

  // The statements "v", "vn" and "vt"; `rest` is the text after the keyword. False, with a message, when it is
  // invalid.
  bool position(std::string_view rest, std::size_t line);
  bool normal(std::string_view rest, std::size_t line);
  void texture() { ++textures_; }

  std::size_t positions() const { return shared_->points.size(); }
  std::size_t normals() const { return normals_; }
  std::size_t textures() const { return textures_; }

  // Converts the colours to the range 0 to 1; the maximum component in the file selects the scale.
  void finish_colours();

  // Converts the number of a normal in the file, counted from 0, to its index in the normal pool; `annMesh::no_normal`
  // for a zero normal and for an undefined one.
  std::uint32_t pool_index(std::uint32_t number) const;

  const std::shared_ptr<annVertices>& shared() const { return shared_; }

 private:
  void colour(const std::array<double, 3>& numbers, std::size_t line);

  double factor_;
  vltOnce& findings_;
  velabsOutput& output_;
  std::shared_ptr<annVertices> shared_ = std::make_shared<annVertices>();
  std::size_t normals_ = 0;
  std::vector<std::uint32_t> without_direction_;  // sorted numbers of normals that are not in the pool
  std::size_t textures_ = 0;
  float greatest_component_ = 0;
};
