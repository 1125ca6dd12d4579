#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "CpuTime.h"
#include "Solids.h"
#include "annOpenEdges.h"
#include "annVertexSplitting.h"

namespace {

using Meshes = std::vector<std::shared_ptr<const annMesh>>;

std::shared_ptr<const annMesh> split(std::shared_ptr<const annMesh> mesh) {
  Meshes meshes{std::move(mesh)};
  ann_split_vertices(meshes);
  return meshes[0];
}

// A fan of `count` triangles about one point, each in another plane.
std::shared_ptr<annMesh> fan(std::size_t count) {
  auto mesh = std::make_shared<annMesh>();
  mesh->vertices->points.push_back({0, 0, 1});
  for (std::uint32_t i = 0; i < count; ++i) {
    const double angle = 2 * std::numbers::pi * i / static_cast<double>(count);
    mesh->vertices->points.push_back({std::cos(angle), std::sin(angle), 0});
    mesh->add_face(std::array{0U, i + 1, i + 1 == count ? 1 : i + 2});
  }
  return mesh;
}

TEST(OpenEdges, AreThoseWithoutAPartnerInTheOtherDirection) {
  using Faces = std::vector<std::vector<std::uint32_t>>;
  const auto with = [](std::shared_ptr<annMesh> mesh, const Faces& faces) {
    for (const auto& face : faces) mesh->add_face(face);
    return mesh;
  };
  const auto turned = cube(1), beside = cube(1);
  std::reverse(turned->corners.begin(), turned->corners.begin() + 4);
  beside->vertices->points.push_back({std::nextafter(1, 2), 0, 0});
  std::replace(beside->corners.begin() + 20, beside->corners.end(), 1U, 8U);
  const struct {
    const char* what;
    std::shared_ptr<const annMesh> mesh;
    std::size_t open;
  } cases[] = {{"closed", cube(1), 0},
               {"closed by position", split(with_face_normals(*cube(1))), 0},
               {"no faces", std::make_shared<annMesh>(), 0},
               {"a face missing", cube(1, true), 4},
               {"a face missing, split", split(with_face_normals(*cube(1, true))), 4},
               {"a face turned", turned, 8},
               {"a face twice", with(cube(1), {{0, 2, 3, 1}}), 4},
               {"a wall inside", with(cube(1), {{0, 1, 7, 6}}), 4},
               {"a face without area", with(cube(1), {{0, 0, 7}}), 0},
               {"the gap closed by two triangles", with(cube(1, true), {{1, 3, 7}, {1, 7, 5}}), 0},
               {"points that differ in the last digit", beside, 4}};
  for (const auto& c : cases) EXPECT_EQ(ann_open_edges(*c.mesh), c.open) << c.what;
}

TEST(VertexSplitting, GivesAPointOneVertexForEachNormal) {
  const auto source = with_face_normals(*cube(2));
  source->vertices->colours.resize(8);
  source->vertices->colours[7] = {1, 0, 0, 0.5F};
  const auto made = split(source);
  const annVertices& vertices = *made->vertices;
  ASSERT_EQ(vertices.points.size(), 24U);
  EXPECT_EQ(std::vector(vertices.points.begin(), vertices.points.begin() + 8), source->vertices->points);
  EXPECT_EQ(std::count(vertices.colours.begin(), vertices.colours.end(), source->vertices->colours[7]), 3);
  EXPECT_TRUE(made->corner_normals.empty() && vertices.normal_pool.empty());
  EXPECT_EQ(made->face_starts, source->face_starts);
  EXPECT_EQ(made->face_materials, source->face_materials);
  for (std::size_t corner = 0; corner < source->corners.size(); ++corner) {
    EXPECT_EQ(*made->normal(corner), *source->normal(corner));
    EXPECT_EQ(vertices.points[made->corners[corner]], source->vertices->points[source->corners[corner]]);
  }
  // Those of the first face keep their numbers, the copies follow in the order of the corners.
  EXPECT_EQ(std::vector(made->corners.begin(), made->corners.begin() + 8),
            (std::vector<std::uint32_t>{0, 2, 3, 1, 4, 5, 7, 6}));
  EXPECT_EQ(made->corners[8], 8U);
}

TEST(VertexSplitting, JoinsNormalsThatAgreeAndFillsInThoseOfFaces) {
  const annVector up{0, 0, 1}, nearly{1e-9, 0, std::sqrt(1 - 1e-18)}, tilted{1e-4, 0, std::sqrt(1 - 1e-8)};
  const auto mesh = mesh_of({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {5, 5, 5}}, {{0, 1, 2}, {0, 2, 3}, {3, 3, 3}});
  constexpr std::uint32_t no = annMesh::no_normal;
  const struct {
    const char* what;
    std::vector<annVector> pool;
    std::vector<std::uint32_t> corner_normals;
    std::size_t vertices;
  } cases[] = {{"one normal under several numbers", {up, up}, {0, 0, 0, 1, 1, 1, 0, 0, 0}, 5},
               {"equal but for rounding", {up, nearly}, {0, 0, 0, 1, 1, 1, 0, 0, 0}, 5},
               {"different", {up, tilted}, {0, 0, 0, 1, 1, 1, 1, 1, 1}, 7},
               {"none at the corners of a face", {up}, {0, 0, 0, no, no, no, no, no, no}, 5},
               {"null vectors", {up, {}}, {1, 1, 1, 0, 0, 0, 1, 1, 1}, 5},
               {"none but different", {tilted}, {0, 0, 0, no, no, no, no, no, no}, 7}};
  for (const auto& c : cases) {
    mesh->vertices->normal_pool = c.pool;
    mesh->corner_normals = c.corner_normals;
    const auto made = split(mesh);
    ASSERT_EQ(made->vertices->points.size(), c.vertices) << c.what;
    for (const annVector& n : made->vertices->normals) EXPECT_NEAR(ann_dot(n, n), 1, 1e-12) << c.what;
    EXPECT_NEAR(made->normal(4)->x, c.corner_normals[4] == no ? 0 : c.pool[c.corner_normals[4]].x, 1e-8) << c.what;
  }
}

TEST(VertexSplitting, KeepsWhatMeshesShareAndLeavesTheOthersAlone) {
  const auto hard = with_face_normals(*cube(1));
  const auto part = std::make_shared<annMesh>(*hard);
  const auto bare = cube(1);
  bare->vertices = hard->vertices;
  const auto alone = cube(3);
  const auto smooth = cube(5);
  smooth->vertices->normals.assign(8, {1, 0, 0});
  const Meshes source{smooth, hard, bare, part, hard, alone};
  for (annBareMeshes rule : {annBARE_STAY, annBARE_GET_FACE_NORMALS}) {
    Meshes made = source;
    ann_split_vertices(made, rule);
    EXPECT_EQ(made[0], source[0]);
    EXPECT_EQ(made[1], made[4]);
    EXPECT_EQ(made[1]->vertices, made[3]->vertices);
    EXPECT_EQ(made[1]->vertices->points.size(), 24U);
    EXPECT_EQ(made[2] == source[2], rule == annBARE_STAY);
    EXPECT_EQ(made[5] == source[5], rule == annBARE_STAY);
    if (rule == annBARE_STAY) continue;
    EXPECT_EQ(made[2]->vertices, made[1]->vertices);
    EXPECT_EQ(made[2]->corners, made[1]->corners);
    EXPECT_EQ(made[5]->vertices->normals.size(), 24U);
  }
}

TEST(Mesh, WorkOnVerticesAndEdgesGrowsWithTheFacesAtAPoint) {
  double took[2] = {};
  const std::size_t counts[2] = {20000, 200000};
  for (int i = 0; i < 2; ++i) {
    const auto mesh = with_face_normals(*fan(counts[i]));
    took[i] = cpu_seconds([&] {
      EXPECT_GT(split(mesh)->vertices->points.size(), counts[i]);
      EXPECT_EQ(ann_open_edges(*mesh), counts[i]);
    });
  }
  // About 12 times; work that grows with the square takes 100 times as long.
  EXPECT_LT(took[1], 50 * took[0] + 0.01);
}

}  // namespace
