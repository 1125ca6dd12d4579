// Makes the sample files bracket.obj, bracket.mtl and bracket.stl: an angle of two plates, 60 x 40 x 60 millimetres
// and 5 thick, with a round hole through each. The mesh is closed: every edge belongs to two faces. The files are
// identical on every machine.
//
//   make_bracket DIRECTORY

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <deque>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <numbers>
#include <string>
#include <vector>

#include "annMesh.h"
#include "annTriangulation.h"

namespace {

constexpr double length = 60, width = 40, thickness = 5, patch_start = 20, step = 5, hole_radius = 10;
constexpr int corners_of_hole = 32;

struct Part {
  std::string name, material;
  annMesh mesh;
};

class Bracket {
 public:
  Bracket() {
    plate(
        "base",
        [](double along, double across, double up) {
          return annVector{along, across, up};
        },
        false);
    plate(
        "upright",
        [](double along, double across, double up) {
          return annVector{up, across, along};
        },
        true);
    sides();
  }

  void write_obj(const std::string& directory) const;
  void write_stl(const std::string& directory) const;

 private:
  using Place = std::function<annVector(double along, double across, double up)>;
  using Polygon = std::vector<annVector>;

  Part& part(const std::string& name, const std::string& material) {
    for (Part& known : parts_) {
      if (known.name == name) return known;
    }
    parts_.push_back({name, material, {}});
    parts_.back().mesh.vertices = vertices_;
    return parts_.back();
  }

  void add(Part& part, const Polygon& polygon, bool turned) {
    std::vector<std::uint32_t> corners;
    for (const annVector& p : polygon) {
      const auto next = static_cast<std::uint32_t>(numbers_.size());
      const auto [known, is_new] = numbers_.try_emplace({p.x, p.y, p.z}, next);
      if (is_new) vertices_->points.push_back(p);
      corners.push_back(known->second);
    }
    if (turned) std::reverse(corners.begin(), corners.end());
    part.mesh.add_face(corners);
  }

  // One plate in local coordinates: the two large faces, the far end and the wall of the hole. `turned` is true when
  // `place` mirrors.
  void plate(const std::string& name, const Place& place, bool turned) {
    Part& plate = part(name, "steel");
    for (int i = 0; i < corners_of_hole; ++i) {
      const auto [inner, outer] = spoke(i);
      const auto [next_inner, next_outer] = spoke((i + 1) % corners_of_hole);
      auto at = [&](annVector p, double up) { return place(p.x, p.y, up); };
      add(plate, {at(inner, thickness), at(outer, thickness), at(next_outer, thickness), at(next_inner, thickness)},
          turned);
      add(plate, {at(inner, 0), at(next_inner, 0), at(next_outer, 0), at(outer, 0)}, turned);
      add(part("holes", "bore"), {at(inner, 0), at(inner, thickness), at(next_inner, thickness), at(next_inner, 0)},
          turned);
    }
    for (double up : {0.0, thickness}) {
      Polygon rest{place(up, 0, up)};
      for (double across = 0; across <= width; across += step) rest.push_back(place(patch_start, across, up));
      rest.push_back(place(up, width, up));
      add(part(name, "steel"), rest, turned != (up == 0));
    }
    for (double across = 0; across < width; across += step) {
      add(part(name, "steel"),
          {place(length, across, 0), place(length, across + step, 0), place(length, across + step, thickness),
           place(length, across, thickness)},
          turned);
    }
  }

  // From a corner of the hole to the border of the square around it; counter-clockwise seen from above.
  static std::pair<annVector, annVector> spoke(int i) {
    constexpr int side = corners_of_hole / 4;
    const double along = i % side * step;
    const std::array<annVector, 4> border{
        annVector{patch_start + along, 0}, {length, along}, {length - along, width}, {patch_start, width - along}};
    const double angle = std::numbers::pi * (1.25 + 2.0 * i / corners_of_hole);
    auto rounded = [](double value) { return std::round(value * 1e4) / 1e4; };
    const annVector inner{rounded((patch_start + length) / 2 + hole_radius * std::cos(angle)),
                          rounded(width / 2 + hole_radius * std::sin(angle))};
    return {inner, border[static_cast<std::size_t>(i / side)]};
  }

  // The two L-shaped side faces, with a corner at each corner that the plates have on their edges.
  void sides() {
    std::vector<double> stops;
    for (double at = patch_start; at <= length; at += step) stops.push_back(at);
    for (double across : {0.0, width}) {
      Polygon angle{{0, across, 0}};
      for (double x : stops) angle.push_back({x, across, 0});
      for (auto x = stops.rbegin(); x != stops.rend(); ++x) angle.push_back({*x, across, thickness});
      angle.push_back({thickness, across, thickness});
      for (double z : stops) angle.push_back({thickness, across, z});
      for (auto z = stops.rbegin(); z != stops.rend(); ++z) angle.push_back({0, across, *z});
      add(part("sides", "steel"), angle, across != 0);
    }
  }

  std::shared_ptr<annVertices> vertices_ = std::make_shared<annVertices>();
  std::map<std::array<double, 3>, std::uint32_t> numbers_;
  std::deque<Part> parts_;  // adding a part must not move the others
};

void Bracket::write_obj(const std::string& directory) const {
  std::ofstream materials(directory + "/bracket.mtl");
  materials << "newmtl steel\nKd 0.62 0.65 0.7\nnewmtl bore\nKd 0.85 0.55 0.15\n";
  std::ofstream file(directory + "/bracket.obj");
  file << "# An angle with two holes, in millimetres.\nmtllib bracket.mtl\n";
  for (const annVector& p : vertices_->points) file << "v " << p.x << ' ' << p.y << ' ' << p.z << '\n';
  for (const Part& part : parts_) {
    file << "g " << part.name << "\nusemtl " << part.material << '\n';
    for (std::size_t face = 0; face < part.mesh.face_count(); ++face) {
      file << 'f';
      for (std::uint32_t corner : part.mesh.face(face)) file << ' ' << corner + 1;
      file << '\n';
    }
  }
}

void Bracket::write_stl(const std::string& directory) const {
  std::string records;
  std::uint32_t count = 0;
  for (const Part& part : parts_) {
    ann_for_each_triangle(part.mesh, [&](std::size_t, std::uint32_t a, std::uint32_t b, std::uint32_t c) {
      const annVector p[] = {vertices_->points[a], vertices_->points[b], vertices_->points[c]};
      annVector n = ann_cross(p[1] - p[0], p[2] - p[0]);
      n = n * (1 / std::sqrt(ann_dot(n, n)));
      std::array<float, 12> numbers;
      std::size_t i = 0;
      for (const annVector& v : {n, p[0], p[1], p[2]}) {
        for (double value : {v.x, v.y, v.z}) numbers[i++] = static_cast<float>(value);
      }
      records.append(reinterpret_cast<const char*>(numbers.data()), sizeof numbers).append(2, '\0');
      ++count;
    });
  }
  std::string head = "An angle with two holes, in millimetres";
  head.resize(80);
  std::ofstream(directory + "/bracket.stl", std::ios::binary)
      << head.append(reinterpret_cast<const char*>(&count), sizeof count) << records;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: make_bracket DIRECTORY\n";
    return 2;
  }
  const Bracket bracket;
  bracket.write_obj(argv[1]);
  bracket.write_stl(argv[1]);
  return 0;
}
