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
  std::size_t normals() const { return normals_.size(); }
  std::size_t textures() const { return textures_; }

  // Brings the colours into the range 0 to 1; the greatest component of the file tells what they count to.
  void finish_colours();

  // Makes the normals of the vertices from those that their corners use: `corners` and `corner_normals` run in step,
  // `no_normal` standing for none. False when a corner has none or two corners of one vertex differ.
  static constexpr std::uint32_t no_normal = 0xffffffff;
  bool take_corner_normals(const std::vector<std::uint32_t>& corners, const std::vector<std::uint32_t>& corner_normals);
  // After all corners: gives the vertices their normals. Those that no face uses get some direction.
  void finish_normals();

  const std::shared_ptr<annVertices>& shared() const { return shared_; }

 private:
  void colour(const std::array<double, 3>& numbers, std::size_t line);

  double factor_;
  vltOnce& findings_;
  velabsOutput& output_;
  std::shared_ptr<annVertices> shared_ = std::make_shared<annVertices>();
  std::vector<annVector> normals_;  // of length 1; the null vector for one without a direction
  std::vector<std::uint32_t> normal_of_;
  std::size_t textures_ = 0;
  float greatest_component_ = 0;
};
