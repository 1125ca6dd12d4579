#include "ExactFiles.h"
#include "annDefinitions.h"

// Where parts stand, and how often, after a document became a file of exact shapes.
using ExactPlacements = ExactFiles;

TEST_F(ExactPlacements, APartThatIsUsedTwiceAndAloneInItsFileStandsInBothPlaces) {
  annDocument document = document_of(cube(10));
  annNode& second = document.root.add_child("cube");
  second.body = document.root.children[0]->body;
  for (const double distance : {0.0, 20.0}) {
    second.transform.m[3] = distance;
    for (const char* format : {"step", "iges", "brep"}) {
      const Reading reading = through(document, format);
      EXPECT_EQ(reading.statistics().parts, 2U) << format;
      expect_box(reading.statistics(), ann_statistics(document));
    }
  }
}

TEST_F(ExactPlacements, PlacementsThatScaleAndMirrorChangeTheShapes) {
  annDocument document = document_of(cube(10));
  document.root.children[0]->transform = {{-2, 0, 0, 5, 0, 2, 0, 0, 0, 0, 2, 0}};
  annNode& stretched = document.root.add_child("stretched");
  stretched.body = document.root.children[0]->body;
  stretched.transform = {{1, 0, 0, 100, 0, 3, 0, 0, 0, 0, 1, 0}};
  const annStatistics expected = ann_statistics(document);
  for (const char* format : {"step", "brep"}) {
    const Reading reading = through(document, format);
    EXPECT_EQ(TemporaryDirectory::read(path("through.step")).find("B_SPLINE"), std::string::npos);
    expect_box(reading.statistics(), expected);
    EXPECT_EQ(reading.statistics().solids, 2U);
    for (const annPlacedBody& placed : ann_placed_bodies(reading.document)) {
      const Closedness facets = closedness_of(*facets_of(placed.node->body));
      EXPECT_EQ(facets.open_edges, 0U);
      EXPECT_GT(facets.volume, 0);
    }
  }
}

// Rounded as files round them, matrices are no turns any more down to the last digit.
TEST_F(ExactPlacements, RoundedTurnsLeaveAPartWhatItIs) {
  const double digits[] = {0.707107, 0.7071068, 0.7071067812, 0.70710678118654752};
  for (const double half : digits) {
    annDocument document = document_of(cube(10));
    annNode& turned = document.root.add_child("turned");
    turned.transform = {{half, -half, 0, 50, half, half, 0, 0, 0, 0, 1, 0}};
    annNode& copy = turned.add_child("cube");
    copy.body = document.root.children[0]->body;
    copy.transform = {{1, 0, 0, 0, 0, half, -half, 0, 0, half, half, 0}};
    annNode& still = document.root.add_child("cube");
    still.body = copy.body;
    still.transform.m[3] = -30;
    for (const char* format : {"step", "iges", "brep"}) {
      const Reading reading = through(document, format, {{"LENGTH_UNIT", "inch"}}, {{"LENGTH_UNIT", "inch"}});
      expect_box(reading.statistics(), ann_statistics(document), 1 / 25.4);
      EXPECT_EQ(reading.statistics().solids, 3U) << format;
    }
    const std::string step = TemporaryDirectory::read(path("through.step"));
    EXPECT_EQ(step.find("B_SPLINE"), std::string::npos) << half;
    const std::size_t first = step.find("=MANIFOLD_SOLID_BREP");
    EXPECT_EQ(step.find("=MANIFOLD_SOLID_BREP", first + 1), std::string::npos) << half << ": the parts are not shared";
  }
}

TEST_F(ExactPlacements, SmallTurnsAreKept) {
  for (const double angle : {3e-5, 1e-9}) {
    annDocument document = document_of(cube(10));
    document.root.children[0]->transform = {{1, -angle, 0, 0, angle, 1, 0, 0, 0, 0, 1, 0}};
    document.root.add_child("other").body.mesh = cube(1);
    for (const char* format : {"step", "brep"}) {
      const Reading reading = through(document, format, {}, {{"LENGTH_UNIT", "millimetre"}});
      const annTransform read = ann_placed_bodies(reading.document)[0].placement;
      EXPECT_NEAR(read.m[4], angle, angle * 1e-3) << format;
      EXPECT_NEAR(read.m[1], -angle, angle * 1e-3) << format;
    }
  }
}
