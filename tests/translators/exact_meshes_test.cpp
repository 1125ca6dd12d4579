#include <filesystem>

#include "ExactFiles.h"

// Meshes that become exact shapes, and exact shapes that become meshes.
using ExactMeshes = ExactFiles;

TEST_F(ExactMeshes, MeshesBecomePlanarFaces) {
  const struct {
    bool open;
    std::size_t solids, faces;
  } cases[] = {{false, 1, 6}, {true, 0, 5}};
  for (const char* format : {"step", "iges", "brep"}) {
    for (const auto& it : cases) {
      const Reading reading = through(document_of(cube(10, it.open)), format);
      EXPECT_EQ(reading.statistics().solids, it.solids) << format;
      EXPECT_EQ(reading.statistics().faces, it.faces) << format;
      ASSERT_TRUE(reading.statistics().box);
      EXPECT_NEAR(reading.statistics().box->max.z, 10, 1e-12);
    }
  }
  writer("step").must_not_write(document_of(cube(1)), path("exact.step"), "has no exact shape",
                                {{"REPRESENTATION", "exact"}});
}

TEST_F(ExactMeshes, TheLimitOfFacetsCountsWhatIsWritten) {
  const auto two = [](double scale, double distance, bool same_mesh) {
    annDocument document = document_of(cube(1));
    annNode& second = document.root.add_child("second");
    second.body.mesh = same_mesh ? document.root.children.front()->body.mesh : cube(3);
    second.transform = annTransform::scaling(scale);
    second.transform.m[3] = distance;
    return document;
  };
  const struct {
    const char* what;
    annDocument document;
    const char* format;
    std::size_t facets;
    const char* files = "one file";
  } cases[] = {{"one mesh", document_of(cube(1)), "step", 6},
               {"a mesh in two sizes", two(2, 0, true), "step", 12},
               {"two meshes", two(1, 0, false), "step", 12},
               {"a mesh twice", two(1, 5, true), "step", 6},
               {"a mesh twice in IGES, which writes it as often", two(1, 5, true), "iges", 12},
               {"a mesh twice in a file of its own", two(1, 5, true), "iges", 6, "file per part"}};
  for (const auto& c : cases) {
    const std::string enough = std::to_string(c.facets), too_small = std::to_string(c.facets - 1);
    const std::string file = path(std::string(c.what) + "." + c.format);
    writer(c.format).must_not_write(c.document, file, "facet-limit=" + enough,
                                    {{"FACET_LIMIT", too_small.c_str()}, {"MULTIPLE_FILES", c.files}});
    writer(c.format).must_write(c.document, file, {{"FACET_LIMIT", enough.c_str()}, {"MULTIPLE_FILES", c.files}});
  }
}

TEST_F(ExactMeshes, MeshesThatHaveNoExactShapeAreSaidToHaveNone) {
  annDocument far = document_of(cube(1));
  far.root.children[0]->transform = {{1, 0, 0, 1e300, 0, 1, 0, 0, 0, 0, 1, 0}};
  const std::pair<annDocument, const char*> cases[] = {{document_of(cube(1e300)), "a coordinate is too large"},
                                                       {document_of(cube(0)), "no face that has an area"},
                                                       {std::move(far), "stands too far away"}};
  for (const auto& [document, reason] : cases) {
    writer("step").must_not_write(document, path("none.step"), reason);
  }
  const auto points = mesh_of({{0, 0, 0}, {1, 0, 0}}, {});
  annDocument mixed = document_of(cube(1));
  mixed.root.add_child("points").body.mesh = points;
  for (const std::string format : {"step", "iges", "brep"}) {
    writer(format).must_not_write(document_of(points), path("none"), "no faces, only vertices");
    const std::string notes = writer(format).must_write(mixed, path("mixed")).notes;
    EXPECT_NE(notes.find("parts of vertices without faces are left out"), std::string::npos) << notes;
    EXPECT_EQ(notes.find("flat facet ("), std::string::npos) << notes;
  }
}

// A plane at right angles to the edges that bound a face on it.
TEST_F(ExactMeshes, AFaceThatCannotBeMeshedIsLeftOutOnlyWhenAskedFor) {
  std::string text = written(document_of(cube(10)), "brep");
  const std::string plane = "1 0 0 0 0 0 -1 -1 0 -0 0 1 0 ", turned = "1 0 0 0 1 0 0 0 1 0 0 0 1 ";
  const std::size_t at = text.find(plane);
  ASSERT_NE(at, std::string::npos);
  text.replace(at, plane.size(), turned);
  const std::string file = directory_.write("gap.brep", text);

  for (const char* format : {"glb", "stl", "viewer"}) {
    const std::string target = path(std::string("gap.") + format);
    writer(format).must_not_write(
        reader("brep").read(file).document, target,
        "1 of its 6 faces cannot be meshed; to leave them out, read the file with --in allow-gaps=1");
    const Reading going_on = reader("brep").read(file, {{"ALLOW_GAPS", "1"}});
    const Messages allowed = writer(format).must_write(going_on.document, target);
    EXPECT_NE(allowed.warnings.find("1 of its 6 faces"), std::string::npos) << allowed.warnings;
  }
  EXPECT_EQ(reader("stl").read(path("gap.stl")).statistics().triangles, 10U);
}

// A cube with an edge whose one face has further corners on it, which triangles without a width tie to the other face.
TEST_F(ExactMeshes, ClosedMeshesStayClosedWhereTrianglesHaveNoWidth) {
  for (const double apart : {0.0, 5e-8, 2.0}) {
    const auto mesh = cube(10);
    // The side at y = 0 as four triangles, and two without a width above it.
    const auto closed = mesh_of({}, {{0, 1, 5}, {0, 5, 9}, {0, 9, 8}, {0, 8, 4}, {4, 8, 9}, {4, 9, 5}});
    for (std::size_t face : {0, 1, 3, 4, 5}) closed->add_face(mesh->face(face));
    closed->vertices = mesh->vertices;
    closed->vertices->points.insert(closed->vertices->points.end(), {{4, 0, 10}, {4 + apart, 0, 10}});
    for (const char* format : {"step", "brep"}) {
      const Reading reading = through(document_of(closed), format);
      EXPECT_EQ(reading.statistics().solids, 1U) << apart;
      const Closedness facets = closedness_of(*facets_of(reading.node(0).body));
      EXPECT_EQ(facets.open_edges, 0U) << apart;
      EXPECT_NEAR(facets.volume, 6000, 1e-3);
    }
  }
}
