#pragma once

#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "Boxes.h"
#include "annDocument.h"
#include "annTriangulation.h"

// Bodies that tests put into documents, and what is measured of them.

// A mesh of points and faces; a face is a list of numbers of points.
inline std::shared_ptr<annMesh> mesh_of(std::vector<annVector> points,
                                        const std::vector<std::vector<std::uint32_t>>& faces) {
  auto mesh = std::make_shared<annMesh>();
  mesh->vertices->points = std::move(points);
  for (const auto& face : faces) mesh->add_face(face);
  return mesh;
}

// A cube of quads, from 0 to `size`, its second face red; open without its last face, and then without colour.
inline std::shared_ptr<annMesh> cube(double size, bool open = false) {
  auto mesh = std::make_shared<annMesh>();
  for (int i = 0; i < 8; ++i) {
    mesh->vertices->points.push_back({(i & 1) * size, (i >> 1 & 1) * size, (i >> 2) * size});
  }
  constexpr std::uint32_t faces[6][4] = {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4},
                                         {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}};
  for (int i = 0; i < (open ? 5 : 6); ++i) mesh->add_face(faces[i]);
  if (open) return mesh;
  mesh->materials = {{"", {1, 0, 0}}};
  mesh->set_face_material(1, 0);
  return mesh;
}

// A mesh with the normals of its faces at its corners, over vertices of its own.
inline std::shared_ptr<annMesh> with_face_normals(const annMesh& mesh) {
  auto result = std::make_shared<annMesh>(mesh);
  result->vertices = std::make_shared<annVertices>(*mesh.vertices);
  for (std::size_t face = 0; face < mesh.face_count(); ++face) {
    result->corner_normals.resize(result->corner_normals.size() + mesh.face(face).size(),
                                  static_cast<std::uint32_t>(result->vertices->normal_pool.size()));
    result->vertices->normal_pool.push_back(mesh.face_normal(face));
  }
  return result;
}

inline annDocument document_of(std::shared_ptr<const annMesh> mesh, const char* name = "cube") {
  annDocument document;
  document.unit = velLENGTH_MILLIMETRE;
  document.root.add_child(name).body.mesh = std::move(mesh);
  return document;
}

// The mesh of a body, or the facets of its exact shape.
inline std::shared_ptr<const annMesh> facets_of(const annBody& body, const annTolerance& tolerance = {}) {
  apStatus status;
  auto mesh = body.mesh ? body.mesh : body.shape->facets(tolerance, status);
  EXPECT_TRUE(mesh) << status.failure().str();
  return mesh;
}

// What a face shows: a colour of its own or that of its part.
inline std::optional<annColour> face_colour(const annMesh& mesh, std::size_t face,
                                            const std::optional<annColour>& of_part) {
  const std::uint32_t material = mesh.face_material(face);
  return material == annMesh::no_material ? of_part : mesh.materials[material].colour;
}

inline void expect_box(const annStatistics& statistics, const annStatistics& expected, double factor = 1) {
  ASSERT_TRUE(statistics.box && expected.box);
  const double size = factor * (expected.box->max.x - expected.box->min.x);
  expect_same_box(*statistics.box, *expected.box * factor, 1e-5 * size, "");
}

// Six times the volume inside, and how many edges have not one neighbour on each side.
struct Closedness {
  double volume = 0;
  std::size_t open_edges = 0;
};

inline Closedness closedness_of(const annMesh& mesh) {
  Closedness result;
  std::map<std::pair<std::uint32_t, std::uint32_t>, int> edges;
  ann_for_each_triangle(mesh, [&](std::size_t, std::uint32_t a, std::uint32_t b, std::uint32_t c) {
    const auto& p = mesh.vertices->points;
    result.volume += ann_dot(p[a], ann_cross(p[b], p[c]));
    for (auto [from, to] : {std::pair(a, b), std::pair(b, c), std::pair(c, a)}) {
      from < to ? ++edges[{from, to}] : --edges[{to, from}];
    }
  });
  for (const auto& [edge, balance] : edges) result.open_edges += balance != 0;
  return result;
}
