#include "ExactFiles.h"
#include "Solids.h"
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
    expect_box(reading.statistics(), expected);
    EXPECT_EQ(reading.statistics().solids, 2U);
    for (const annPlacedBody& placed : ann_placed_bodies(reading.document)) {
      apStatus status;
      const auto mesh = placed.node->body.shape->facets({}, status);
      ASSERT_TRUE(mesh);
      EXPECT_EQ(closedness_of(*mesh).open_edges, 0U);
      EXPECT_GT(closedness_of(*mesh).volume, 0);
    }
  }
}
