#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "annColour.h"
#include "velLengthUnit.h"
#include "velabsOfStream.h"
#include "viewMesh.h"
#include "viewScene.h"

// The scene as one JSON object for the page's scripts:
//   title, unit  texts; the unit is short ("mm"), empty when it is unknown
//   up           the up axis, "y" or "z"
//   colours      [red, green, blue, opacity]
//   meshes       {v, t, e: counts of vertices, triangles and lines; c: bytes of the corners; l: bytes of the lines;
//                gap: approximate distance between lines; box: [min x, y, z, max x, y, z]; ranges: [colour or -1,
//                first triangle, count]...; solid: 1 for a closed surface; tinted: 1 when vertices have colours}, in
//                the order of their data
//   nodes        [parent or -1, name, mesh or -1, colour or -1, placement of 12 numbers, box of 6 numbers]; the name
//                is the part's or, for a named instance, [the instance's, the part's]; nodes without a mesh end after
//                the name
class viewSceneText {
 public:
  viewSceneText(const viewScene& scene, std::string title, velLengthUnit unit);

  // Adds the next mesh and returns its data.
  std::string add_mesh(const viewMesh& mesh, std::size_t number);
  // False when a part is outside the range of 32-bit floats.
  bool within_reach() const { return within_reach_; }
  std::size_t triangle_count() const { return triangles_; }

  void write(velabsOfStream& stream);

 private:
  std::size_t colour(const annColour& colour);
  void write_node(const viewScene::Node& node, std::size_t number, velabsOfStream& stream);

  const viewScene& scene_;
  std::string title_;
  velLengthUnit unit_;
  std::string meshes_;
  std::string colours_;
  std::map<std::array<float, 4>, std::size_t> colour_numbers_;
  std::vector<std::vector<std::size_t>> shown_by_;  // the nodes that use each mesh
  std::vector<annBox> boxes_;                       // of the nodes
  std::vector<char> is_empty_;                      // one for each mesh
  std::size_t triangles_ = 0;
  bool within_reach_ = true;
};
