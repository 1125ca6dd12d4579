#include "exaBrepShapes.h"

#include <TopAbs_ShapeEnum.hxx>
#include <algorithm>
#include <cstdint>

#include "exaNesting.h"

namespace {

// The kernel destroys shapes by recursion. Below the innermost compound there are solids, shells and so on.
constexpr std::size_t deepest = exaNesting::most_levels + TopAbs_SHAPE;

class ShapeWalk {
 public:
  ShapeWalk(exaBrepValues& values, const exaBrepContent& content) : values_(values), content_(content) {}

  void run() {
    constexpr std::size_t least = 4;
    count_ = values_.section("TShapes", least);
    depths_.reserve(count_);
    while (depths_.size() < count_ && values_.ok()) {
      values_.reading("shape", depths_.size() + 1);
      shape();
    }
    values_.reading("shape of the whole");
    std::size_t depth = 0;
    if (values_.ok() && !part(depth)) values_.fail("there is none");
  }

 private:
  void shape() {
    const int kind = values_.shape_kind();
    if (kind == TopAbs_VERTEX) vertex();
    if (kind == TopAbs_EDGE) edge();
    if (kind == TopAbs_FACE) face();
    values_.shape_flags();
    std::size_t depth = 0;
    while (part(depth)) {
    }
    depths_.push_back(depth);
  }

  // Shapes are numbered in reverse file order, each after the shapes that it is made of.
  bool part(std::size_t& depth) {
    std::int64_t number = 0;
    if (!values_.sub_shape(number)) return false;
    values_.reference("location", 0, content_.locations);
    const std::int64_t count = static_cast<std::int64_t>(count_), place = count - number;
    if (values_.ok() && (number > count || place < 0 || place >= static_cast<std::int64_t>(depths_.size()))) {
      values_.fail("it is made of the shape " + std::to_string(number) + ", which is not there yet");
    }
    if (!values_.ok()) return false;
    depth = std::max(depth, depths_[static_cast<std::size_t>(place)] + 1);
    if (depth > deepest) {
      values_.fail("its parts stand in each other more than " + std::to_string(exaNesting::most_levels) + " deep");
    }
    return values_.ok();
  }

  void location() { values_.reference("location", 0, content_.locations); }
  void surface() { values_.reference("surface", 1, content_.surfaces); }

  void vertex() {
    constexpr std::size_t tolerance_and_point = 4;
    values_.reals(tolerance_and_point);
    while (const int choice = values_.point_choice()) {
      switch (choice) {
        case 1:
          values_.reference("curve", 1, content_.curves);
          break;
        case 2:
          values_.reference("2D curve", 1, content_.curves2d);
          surface();
          break;
        case 3:
          values_.reals(1);
          surface();
          break;
        default:
          values_.fail(std::to_string(choice) + " is no kind of point");
      }
      location();
    }
  }

  void edge() {
    values_.reals(1);
    for (int i = 0; i < 3; ++i) values_.flag();
    while (const int choice = values_.choice()) {
      switch (choice) {
        case 1:
          values_.reference("curve", 1, content_.curves);
          location();
          values_.reals(2);
          break;
        case 2:
        case 3:
          curve_on_surface(choice == 3);
          break;
        case 4:
          values_.continuity();
          surface();
          location();
          surface();
          location();
          break;
        case 5:
          values_.reference("polygon", 1, content_.polygons);
          location();
          break;
        case 6:
        case 7:
          polygon_on_facets(choice == 7);
          break;
        default:
          values_.fail(std::to_string(choice) + " is no kind of curve of an edge");
      }
    }
  }

  void curve_on_surface(bool is_seam) {
    values_.reference("2D curve", 1, content_.curves2d);
    if (is_seam) {
      values_.reference("2D curve", 1, content_.curves2d);
      values_.continuity();
    }
    surface();
    location();
    values_.reals(content_.has_ends ? 6 : 2);
  }

  void polygon_on_facets(bool is_seam) {
    const std::size_t first = values_.reference("polygon", 1, content_.facet_polygons.size());
    const std::size_t second = is_seam ? values_.reference("polygon", 1, content_.facet_polygons.size()) : first;
    const std::size_t facets = values_.reference("triangulation", 1, content_.triangulations.size());
    location();
    if (!values_.ok()) return;
    const std::size_t highest = std::max(content_.facet_polygons[first - 1], content_.facet_polygons[second - 1]);
    if (highest > content_.triangulations[facets - 1]) {
      values_.fail("its polygon refers to the node " + std::to_string(highest) + " of " +
                   std::to_string(content_.triangulations[facets - 1]));
    }
  }

  void face() {
    values_.flag();
    values_.reals(1);
    values_.reference("surface", 0, content_.surfaces);
    location();
    values_.face_facets(content_.triangulations.size());
  }

  exaBrepValues& values_;
  const exaBrepContent& content_;
  std::size_t count_ = 0;
  std::vector<std::size_t> depths_;
};

}  // namespace

void exa_walk_shapes(exaBrepValues& values, const exaBrepContent& content) {
  ShapeWalk(values, content).run();
}
