#include <filesystem>

#include "ExactFiles.h"
#include "Solids.h"

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
  Messages messages;
  EXPECT_EQ(writer("step").write(document_of(cube(1)), path("limit.step"), messages, {{"FACET_LIMIT", "5"}}),
            velabsFAILED);
  EXPECT_NE(messages.errors.find("facet-limit=6"), std::string::npos) << messages.errors;

  // The limit counts the meshes of all parts, one of two sizes twice.
  annDocument two = document_of(cube(1));
  annNode& larger = two.root.add_child("larger");
  larger.body.mesh = two.root.children.front()->body.mesh;
  larger.transform = annTransform::scaling(2);
  for (const bool same_mesh : {true, false}) {
    if (!same_mesh) larger.body.mesh = cube(3);
    messages = {};
    EXPECT_EQ(writer("step").write(two, path("two.step"), messages, {{"FACET_LIMIT", "11"}}), velabsFAILED);
    EXPECT_NE(messages.errors.find("facet-limit=12"), std::string::npos) << messages.errors;
    EXPECT_EQ(writer("step").write(two, path("two.step"), messages, {{"FACET_LIMIT", "12"}}), velabsDONE);
  }

  // IGES writes a mesh as often as it occurs.
  larger.body.mesh = two.root.children.front()->body.mesh;
  larger.transform = {{1, 0, 0, 5, 0, 1, 0, 0, 0, 0, 1, 0}};
  messages = {};
  EXPECT_EQ(writer("iges").write(two, path("two.iges"), messages, {{"FACET_LIMIT", "11"}}), velabsFAILED);
  EXPECT_NE(messages.errors.find("facet-limit=12"), std::string::npos) << messages.errors;
  EXPECT_EQ(writer("step").write(two, path("two.step"), messages, {{"FACET_LIMIT", "11"}}), velabsDONE);
  EXPECT_EQ(writer("iges").write(two, path("two.iges"), messages,
                                 {{"FACET_LIMIT", "11"}, {"MULTIPLE_FILES", "file per part"}}),
            velabsDONE);

  messages = {};
  EXPECT_EQ(writer("step").write(document_of(cube(1)), path("exact.step"), messages, {{"REPRESENTATION", "exact"}}),
            velabsFAILED);
}

TEST_F(ExactMeshes, MeshesThatHaveNoExactShapeAreSaidToHaveNone) {
  annDocument far = document_of(cube(1));
  far.root.children[0]->transform = {{1, 0, 0, 1e300, 0, 1, 0, 0, 0, 0, 1, 0}};
  const std::pair<annDocument, const char*> cases[] = {{document_of(cube(1e300)), "a coordinate is too large"},
                                                       {document_of(cube(0)), "no face that has an area"},
                                                       {std::move(far), "stands too far away"}};
  for (const auto& [document, reason] : cases) {
    Messages messages;
    EXPECT_EQ(writer("step").write(document, path("none.step"), messages), velabsFAILED);
    EXPECT_NE(messages.errors.find(reason), std::string::npos) << messages.errors;
  }
}

// A plane at right angles to the edges that bound a face on it.
TEST_F(ExactMeshes, AFaceThatCannotBeMeshedIsLeftOutOnlyWhenAskedFor) {
  Messages messages;
  ASSERT_EQ(writer("brep").write(document_of(cube(10)), path("cube.brep"), messages, {{"FILE_FORMAT", "ascii"}}),
            velabsDONE);
  std::string text = TemporaryDirectory::read(path("cube.brep"));
  const std::string plane = "1 0 0 0 0 0 -1 -1 0 -0 0 1 0 ", turned = "1 0 0 0 1 0 0 0 1 0 0 0 1 ";
  const std::size_t at = text.find(plane);
  ASSERT_NE(at, std::string::npos);
  text.replace(at, plane.size(), turned);
  const std::string file = directory_.write("gap.brep", text);

  for (const char* format : {"glb", "stl", "viewer"}) {
    Messages refused, allowed;
    const std::string target = path(std::string("gap.") + format);
    EXPECT_EQ(writer(format).write(reader("brep").read(file).document, target, refused), velabsFAILED) << format;
    EXPECT_NE(refused.errors.find("1 of its 6 faces cannot be meshed; to leave them out"), std::string::npos)
        << refused.errors;
    EXPECT_NE(refused.errors.find("allow-gaps=1"), std::string::npos) << refused.errors;
    EXPECT_FALSE(std::filesystem::exists(target));
    const Reading going_on = reader("brep").read(file, {{"ALLOW_GAPS", "1"}});
    EXPECT_EQ(writer(format).write(going_on.document, target, allowed), velabsDONE) << format << allowed.errors;
    EXPECT_NE(allowed.warnings.find("1 of its 6 faces"), std::string::npos) << allowed.warnings;
  }
  EXPECT_EQ(reader("stl").read(path("gap.stl")).statistics().triangles, 10U);
}

// A cube with an edge whose one face has further corners on it, which triangles without a width tie to the other face.
TEST_F(ExactMeshes, ClosedMeshesStayClosedWhereTrianglesHaveNoWidth) {
  for (const double apart : {0.0, 5e-8, 2.0}) {
    auto mesh = cube(10);
    auto closed = std::make_shared<annMesh>();
    closed->vertices = mesh->vertices;
    for (std::size_t face : {0, 1, 3, 4, 5}) closed->add_face(mesh->face(face));
    mesh->vertices->points.insert(mesh->vertices->points.end(), {{4, 0, 10}, {4 + apart, 0, 10}});
    for (const auto& corners : {std::array<std::uint32_t, 3>{0, 1, 5},
                                {0, 5, 9},
                                {0, 9, 8},
                                {0, 8, 4},  // the side
                                std::array<std::uint32_t, 3>{4, 8, 9},
                                {4, 9, 5}}) {
      closed->add_face(corners);
    }
    for (const char* format : {"step", "brep"}) {
      const Reading reading = through(document_of(closed), format);
      EXPECT_EQ(reading.statistics().solids, 1U) << apart;
      apStatus status;
      const auto facets = reading.node(0).body.shape->facets({}, status);
      ASSERT_TRUE(facets) << status.failure().str();
      EXPECT_EQ(closedness_of(*facets).open_edges, 0U) << apart;
      EXPECT_NEAR(closedness_of(*facets).volume, 6000, 1e-3);
    }
  }
}
