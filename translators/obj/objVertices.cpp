#include "objVertices.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "annMesh.h"
#include "objNumbers.h"
#include "vltColours.h"
#include "vltInput.h"
#include "vltNames.h"

namespace {

// Placeholder until the whole file is read.
constexpr annColour no_colour{-1, -1, -1, 1};

}  // namespace

bool objVertices::position(std::string_view rest, std::size_t line) {
  std::array<double, 6> numbers;
  std::size_t count = 0;
  std::string_view wrong;
  if (!obj_take_numbers(rest, numbers, count, line, findings_, wrong)) {
    return vlt_fail_at_line(output_, line, "the coordinate " + vlt_quoted(wrong) + " is no number");
  }
  if (count < 3) return vlt_fail_at_line(output_, line, "a vertex needs three coordinates");
  const annVector point = annVector{numbers[0], numbers[1], numbers[2]} * factor_;
  if (!std::isfinite(point.x) || !std::isfinite(point.y) || !std::isfinite(point.z)) {
    return vlt_fail_at_line(output_, line, "a coordinate is no finite number");
  }
  if (positions() >= std::numeric_limits<std::uint32_t>::max() - 1) {
    return vlt_fail_at_line(output_, line, "more vertices than a mesh can number");
  }
  shared_->points.push_back(point);
  if (count == 4 && numbers[3] != 1) findings_.count(velabsNOTE, "weights of vertices are left out", line);
  if (count == 5) findings_.count(velabsWARNING, "further numbers of a vertex are passed over", line);
  if (count == 6) {
    colour({numbers[3], numbers[4], numbers[5]}, line);
  } else if (!shared_->colours.empty()) {
    shared_->colours.push_back(no_colour);
  }
  return true;
}

void objVertices::colour(const std::array<double, 3>& numbers, std::size_t line) {
  std::array<float, 3> c{};
  for (std::size_t i = 0; i < 3; ++i) {
    if (!std::isfinite(numbers[i])) findings_.count(velabsWARNING, "a colour that is no number is taken as 0", line);
    c[i] = std::isfinite(numbers[i]) ? static_cast<float>(std::clamp(numbers[i], 0.0, 255.0)) : 0;
    greatest_component_ = std::max(greatest_component_, c[i]);
  }
  shared_->colours.resize(positions() - 1, no_colour);
  shared_->colours.push_back({c[0], c[1], c[2], 1});
}

void objVertices::finish_colours() {
  const float full = vlt_full_component(greatest_component_);
  auto level = [full](float component) { return std::min(component / full, 1.0F); };
  for (annColour& c : shared_->colours) {
    // If other vertices have a colour, vertices without one become white.
    c = c == no_colour ? annColour{1, 1, 1, 1} : annColour{level(c.red), level(c.green), level(c.blue), 1};
  }
}

bool objVertices::normal(std::string_view rest, std::size_t line) {
  std::array<double, 3> numbers{};
  std::size_t count = 0;
  std::string_view wrong;
  if (!obj_take_numbers(rest, numbers, count, line, findings_, wrong)) {
    return vlt_fail_at_line(output_, line, vlt_quoted(wrong) + " is no number");
  }
  const double length = std::hypot(numbers[0], numbers[1], numbers[2]);
  if (count == 3 && length > 0 && std::isfinite(length)) {
    shared_->normal_pool.push_back({numbers[0] / length, numbers[1] / length, numbers[2] / length});
  } else {
    without_direction_.push_back(static_cast<std::uint32_t>(normals_));
  }
  ++normals_;
  return true;
}

std::uint32_t objVertices::pool_index(std::uint32_t number) const {
  if (number >= normals_) return annMesh::no_normal;
  const auto left_out = std::lower_bound(without_direction_.begin(), without_direction_.end(), number);
  if (left_out != without_direction_.end() && *left_out == number) return annMesh::no_normal;
  return number - static_cast<std::uint32_t>(left_out - without_direction_.begin());
}
