#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numbers>
#include <random>

#include "CpuTime.h"
#include "Solids.h"
#include "annDocument.h"
#include "annPrecision.h"
#include "annTriangleCorners.h"
#include "annWelder.h"

namespace {

using Points = std::vector<annVector>;

struct Split {
  std::size_t triangles = 0;
  double area = 0;    // of all triangles, each counted positive
  double turned = 0;  // of those that run against the face
};

Split split(const Points& points, std::vector<std::uint32_t> face = {}) {
  if (face.empty()) {
    for (std::uint32_t i = 0; i < points.size(); ++i) face.push_back(i);
  }
  annVector normal;
  for (std::size_t i = 2; i < face.size(); ++i) {
    normal = normal + ann_cross(points[face[i - 1]] - points[face[0]], points[face[i]] - points[face[0]]);
  }
  annTriangulator triangulator;
  Split result;
  for (const auto& t : triangulator.triangles(points, face)) {
    ++result.triangles;
    const annVector cross = ann_cross(points[t[1]] - points[t[0]], points[t[2]] - points[t[0]]);
    const double area = std::sqrt(ann_dot(cross, cross)) / 2;
    result.area += area;
    if (ann_dot(cross, normal) < 0) result.turned += area;
  }
  return result;
}

double area_of(const Points& points) {
  annVector sum;
  for (std::size_t i = 2; i < points.size(); ++i) {
    sum = sum + ann_cross(points[i - 1] - points[0], points[i] - points[0]);
  }
  return std::sqrt(ann_dot(sum, sum)) / 2;
}

// A wall of constant thickness rolled up into a spiral: hardly any corner of it can be cut at first.
Points spiral(std::size_t corners) {
  Points points;
  const std::size_t half = corners / 2;
  auto at = [&](std::size_t i, double thickness) {
    const double angle = 40 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(half);
    const double radius = 10 + angle + thickness;
    points.push_back({radius * std::cos(angle), radius * std::sin(angle), 0});
  };
  for (std::size_t i = 0; i < half; ++i) at(i, 3);
  for (std::size_t i = half; i-- > 0;) at(i, 0);
  return points;
}

Points ragged_circle(std::size_t corners) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> radius(0.5, 1);
  Points points;
  for (std::size_t i = 0; i < corners; ++i) {
    const double angle = 2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(corners),
                 r = radius(random);
    points.push_back({r * std::cos(angle), r * std::sin(angle), r * std::cos(angle)});
  }
  return points;
}

TEST(Triangulation, KeepsAreaAndWindingOfSimpleFaces) {
  const struct {
    const char* what;
    Points points;
  } cases[] = {{"square", {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}},
               {"dart, hollow corner second", {{0, 0, 0}, {1, 1, 0}, {4, 0, 0}, {1, 4, 0}}},
               {"dart, hollow corner first", {{1, 1, 0}, {4, 0, 0}, {1, 4, 0}, {0, 0, 0}}},
               {"straight corners", {{0, 0, 1}, {1, 0, 1}, {2, 0, 1}, {2, 2, 1}, {1, 2, 1}, {0, 2, 1}, {0, 1, 1}}},
               {"L upright", {{0, 0, 0}, {0, 3, 0}, {0, 3, 1}, {0, 1, 1}, {0, 1, 3}, {0, 0, 3}}},
               {"L the other way", {{0, 0, 3}, {0, 1, 3}, {0, 1, 1}, {0, 3, 1}, {0, 3, 0}, {0, 0, 0}}},
               {"far from the origin",
                {{1e7, 1e7, 0}, {1e7 + 3, 1e7, 0}, {1e7 + 1, 1e7 + 1, 0}, {1e7 + 3, 1e7 + 3, 0}, {1e7, 1e7 + 3, 0}}},
               {"spiral", spiral(2000)},
               {"ragged circle", ragged_circle(3000)}};
  for (const auto& c : cases) {
    const Split result = split(c.points);
    EXPECT_EQ(result.triangles, c.points.size() - 2) << c.what;
    const double area = area_of(c.points);
    EXPECT_NEAR(result.area, area, 1e-9 * area) << c.what;
    EXPECT_LE(result.turned, 1e-9 * area) << c.what;
  }
}

TEST(Triangulation, CutsOutAHoleThatABridgeJoinsToTheBorder) {
  const Points points{{0, 0, 0}, {9, 0, 0}, {9, 9, 0}, {0, 9, 0}, {3, 3, 0}, {3, 6, 0}, {6, 6, 0}, {6, 3, 0}};
  const Split result = split(points, {0, 1, 2, 3, 0, 4, 5, 6, 7, 4});
  EXPECT_TRUE(result.triangles == 8 && result.turned == 0);
  EXPECT_NEAR(result.area, 81 - 9, 1e-12);
}

TEST(Triangulation, GivesEveryFaceItsNumberOfTriangles) {
  const double inf = std::numeric_limits<double>::infinity(), nan = std::nan("");
  const struct {
    const char* what;
    Points points;
  } cases[] = {{"crossing quad", {{0, 0, 0}, {1, 1, 0}, {1, 0, 0}, {0, 1, 0}}},
               {"pentagram", {{0, 3, 0}, {-2, -3, 0}, {3, 1, 0}, {-3, 1, 0}, {2, -3, 0}}},
               {"one point", Points(9)},
               {"on a line", {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {1.5, 0, 0}}},
               {"there and back", {{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {2, 9, 0}, {4, 4, 0}, {0, 4, 0}}},
               {"not flat", {{0, 0, 0}, {4, 0, 1}, {4, 4, -1}, {2, 1, 5}, {0, 4, 2}}},
               {"not finite", {{0, 0, 0}, {inf, 0, 0}, {4, nan, 0}, {2, 1, 0}, {0, 4, 0}}},
               {"huge", {{0, 0, 0}, {1e300, 0, 0}, {1e300, 1e300, 0}, {1e299, 2e299, 0}, {0, 1e300, 0}}}};
  for (const auto& c : cases) EXPECT_EQ(split(c.points).triangles, c.points.size() - 2) << c.what;

  std::mt19937 random(3);
  std::uniform_real_distribution<double> any(0, 1);
  Points tangle;
  for (int i = 0; i < 20000; ++i) tangle.push_back({any(random), any(random), 0});
  EXPECT_EQ(split(tangle).triangles, tangle.size() - 2);
}

TEST(Triangulation, OfCornersGivesTheSameTriangles) {
  const annMesh mesh = *mesh_of({{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {2, 1, 0}, {0, 4, 0}, {0, 0, 3}},
                                {{5, 1, 0}, {0, 1, 2, 3, 4}, {4, 3, 1, 0}, {2, 1, 5}});
  std::vector<std::array<std::size_t, 4>> expected, found;
  ann_for_each_triangle(mesh, [&](auto face, auto a, auto b, auto c) { expected.push_back({face, a, b, c}); });
  ann_for_each_triangle_of_corners(mesh, [&](auto face, auto a, auto b, auto c) {
    found.push_back({face, mesh.corners[a], mesh.corners[b], mesh.corners[c]});
    for (const auto corner : {a, b, c}) {
      EXPECT_TRUE(corner >= mesh.face_starts[face] && corner < mesh.face_starts[face + 1]);
    }
  });
  EXPECT_EQ(found, expected);
}

TEST(Triangulation, WorkGrowsWithTheCornersAndNotWithTheirSquare) {
  auto points_on_an_edge = [](std::size_t corners) {
    Points points{{0, 100, 0}};
    for (std::size_t i = 1; i < corners; ++i) points.push_back({static_cast<double>(i) * 0.01, 0, 0});
    return points;
  };
  // Products of such coordinates are no longer told from zero.
  auto narrow_strip = [](std::size_t corners) {
    Points points;
    for (std::size_t i = 0; i < corners / 2; ++i) points.push_back({static_cast<double>(i), 0, 0});
    for (std::size_t i = corners / 2; i-- > 0;) points.push_back({static_cast<double>(i), 1e-300, 0});
    return points;
  };
  auto six_places = [](std::size_t corners) {
    Points points;
    for (std::size_t i = 0; i < corners; ++i) {
      points.push_back({static_cast<double>(i % 2), static_cast<double>(i % 3) * 1e-9, 0});
    }
    return points;
  };
  const struct {
    const char* what;
    std::function<Points(std::size_t)> points;
    bool is_simple = true;
  } cases[] = {{"spiral", spiral},
               {"ragged circle", ragged_circle},
               {"points on an edge", points_on_an_edge},
               {"narrow strip", narrow_strip},
               {"six places", six_places, false}};
  for (const auto& c : cases) {
    double took[2] = {};
    const std::size_t counts[2] = {10000, 100000};
    for (int i = 0; i < 2; ++i) {
      const Points points = c.points(counts[i]);
      Split result;
      took[i] = cpu_seconds([&] { result = split(points); });
      EXPECT_EQ(result.triangles, counts[i] - 2) << c.what;
      EXPECT_TRUE(!c.is_simple || result.turned <= 1e-9 * result.area) << c.what;
    }
    // About 12 times; work that grows with the square takes 100 times as long.
    EXPECT_LT(took[1], 50 * took[0]) << c.what;
  }
}

TEST(Welder, GivesEqualPointsOneNumberThroughGrowth) {
  Points points;
  annWelder welder(points);
  auto point = [](int i) { return annVector{i % 40 * 0.1, i / 40 % 40 * 1e9, i / 1600 * -1e-9}; };
  for (int i = 0; i < 16000; ++i) ASSERT_EQ(welder.number_of(point(i)), static_cast<std::uint32_t>(i));
  for (int i = 0; i < 16000; ++i) ASSERT_EQ(welder.number_of(point(i)), static_cast<std::uint32_t>(i));
  EXPECT_EQ(points.size(), 16000u);
  EXPECT_EQ(welder.number_of({-0.0, 0, -0.0}), 0u);
  EXPECT_EQ(welder.number_of({0, std::nextafter(0, 1), 0}), 16000u);
}

TEST(Transform, TurnsNormalsRightUnderUnevenScaleAndMirror) {
  annTransform uneven;
  uneven.m = {2, 0, 0, 5, 0, 1, 0, 6, 0, 0, -1, 7};
  EXPECT_TRUE(uneven.mirrors());
  const annVector n = uneven.normal({std::sqrt(0.5), std::sqrt(0.5), 0});
  EXPECT_NEAR(n.x * 2 - n.y, 0, 1e-12);  // the plane x + y = 0 becomes x/2 + y = 0
  EXPECT_EQ(uneven.normal({0, 0, 1}), (annVector{0, 0, -1}));
  const annTransform twice = uneven * uneven;
  EXPECT_EQ(twice.point({1, 2, 3}), uneven.point(uneven.point({1, 2, 3})));
  EXPECT_EQ(annTransform::scaling(0).normal({0, 0, 1}), annVector{});
}

TEST(Precision, RoundsToThePowerOfTenThatAStepNeeds) {
  const struct {
    double value, step, rounded;
  } cases[] = {{-1.776e-15, 7e-12, 0},
               {59.99999999999993, 7e-12, 60},
               {0.10000000149011612, 3e-8, 0.1},
               {2.3622047244094488, 1, 2},
               {-123456, 3, -123460},
               {7, 12, 0},
               {70, 12, 100},
               {1e-30, 1e-40, 1e-30},
               {1.5, 0, 1.5},
               {0.30000000000000004, 1e-17, 0.30000000000000004}};
  for (const auto& c : cases) EXPECT_EQ(ann_rounded(c.value, c.step), c.rounded) << c.value << " " << c.step;
}

TEST(Document, WalksAndDiesAtAnyDepth) {
  auto document = std::make_unique<annDocument>();
  annNode* node = &document->root;
  for (int i = 0; i < 1000000; ++i) node = &node->add_child({});
  node->body.mesh = std::make_shared<annMesh>();
  EXPECT_EQ(ann_placed_bodies(*document).size(), 1u);
}

TEST(Document, CountsSharedVerticesOnceForEachPlace) {
  annDocument document;
  const auto mesh = mesh_of({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {9, 9, 9}}, {{0, 1, 2}, {0, 1, 2, 3}});
  annNode& assembly = document.root.add_child("assembly");
  assembly.colour = annColour{1, 0, 0, 1};
  assembly.transform.m[3] = 10;
  for (double z : {0.0, 0.0, 5.0}) {
    annNode& part = assembly.add_child("part");
    part.transform.m[11] = z;
    part.body.mesh = mesh;
  }
  const annStatistics statistics = ann_statistics(document);
  EXPECT_EQ(statistics.parts, 3u);
  EXPECT_EQ(statistics.faces, 6u);
  EXPECT_EQ(statistics.triangles, 9u);
  EXPECT_EQ(statistics.vertices, 10u);
  EXPECT_EQ(statistics.box->min, (annVector{10, 0, 0}));
  EXPECT_EQ(statistics.box->max, (annVector{19, 9, 14}));
  EXPECT_EQ(ann_placed_bodies(document)[2].colour, assembly.colour);
}

}  // namespace
