#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "annVertices.h"
#include "apLargePages.h"
#include "vltOnce.h"

// What the vertex statements of a file say. All meshes of the file share the one list of vertices, exactly as it stands
// there.
class objVertices {
 public:
  // The file's size bounds the room that is set aside; memory is taken as it fills.
  objVertices(double factor, std::size_t file_size, vltOnce& findings, velabsOutput& output)
      : factor_(factor), findings_(findings), output_(output) {
    constexpr std::size_t usual_line = 20;
    ap_reserve_large(shared_->points, file_size / usual_line);
  }

  // The statements "v", "vn" and "vt", given what stands behind the keyword. False, and a message, when they are wrong.
  bool position(std::string_view rest, std::size_t line);
  bool normal(std::string_view rest, std::size_t line);
  void texture() { ++textures_; }

  std::size_t positions() const { return shared_->points.size(); }
  std::size_t normals() const { return normals_; }
  std::size_t textures() const { return textures_; }

  // Brings the colours into the range 0 to 1; the greatest component of the file tells what they count to.
  void finish_colours();

  // Turns the number of a normal of the file, counted from 0, into its index in the pool of the vertices;
  // `annMesh::no_normal` for one without a direction and for one that the file does not have.
  std::uint32_t pool_index(std::uint32_t number) const;

  const std::shared_ptr<annVertices>& shared() const { return shared_; }

 private:
  void colour(const std::array<double, 3>& numbers, std::size_t line);

  double factor_;
  vltOnce& findings_;
  velabsOutput& output_;
  std::shared_ptr<annVertices> shared_ = std::make_shared<annVertices>();
  std::size_t normals_ = 0;
  std::vector<std::uint32_t> without_direction_;  // numbers of normals, in their order; these are not in the pool
  std::size_t textures_ = 0;
  float greatest_component_ = 0;
};
