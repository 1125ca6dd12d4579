#include <gtest/gtest.h>

#include "Solids.h"
#include "TemporaryDirectory.h"
#include "Translator.h"
#include "annOpenEdges.h"

namespace {

// A cube with hard edges, as it is and mirrored; one of its corners has no normal. Beside it, on request, one without
// any.
annDocument hard_cubes(bool with_bare) {
  const auto hard = with_face_normals(*cube(2));
  hard->corner_normals[5] = annMesh::no_normal;
  annDocument document = document_of(hard);
  annNode& mirrored = document.root.add_child("mirrored");
  mirrored.body.mesh = hard;
  mirrored.transform.m = {-1, 0, 0, 10, 0, 0, 2, 0, 0, 1, 0, 0};
  if (with_bare) {
    annNode& bare = document.root.add_child("bare");
    bare.body.mesh = cube(1);
    bare.transform.m[3] = 20;
  }
  return document;
}

// Every normal in a model of cubes is that of its face.
void expect_normals_of_faces(const annMesh& mesh, bool expect_all) {
  std::size_t corner = 0, missing = 0;
  for (std::size_t face = 0; face < mesh.face_count(); ++face) {
    const annVector expected = mesh.face_normal(face);
    for (std::size_t i = 0; i < mesh.face(face).size(); ++i, ++corner) {
      const annVector* const normal = mesh.normal(corner);
      missing += normal == nullptr;
      EXPECT_NEAR(normal ? ann_dot(*normal, expected) : 1, 1, 1e-6) << "face " << face;
    }
  }
  EXPECT_EQ(missing, expect_all ? 0 : mesh.corners.size());
}

TEST(Normals, OfHardEdgesComeThroughEveryFormat) {
  TemporaryDirectory directory;
  const struct {
    const char *reader, *writer, *extension;
    std::size_t meshes, vertices;  // read of the two hard cubes; the vertices that their first mesh refers to
    bool fills_bare;
    Options options = {};
  } cases[] = {{"objreader", "objwriter", "obj", 2, 16, false},
               {"plyreader", "plywriter", "ply", 1, 48, true, {{"FILE_FORMAT", "ascii"}}},
               {"plyreader", "plywriter", "ply", 1, 48, true},
               {"offreader", "offwriter", "off", 1, 48, true},
               {"gltfreader", "glbwriter", "glb", 2, 24, false, {{"WELD_POINTS", "0"}}},
               {"gltfreader", "glbwriter", "glb", 2, 8, false, {{"WELD_POINTS", "1"}}}};
  for (const auto& c : cases) {
    if (!is_installed(c.writer)) continue;
    SCOPED_TRACE(c.extension);
    const std::string file = directory / ("a." + std::string(c.extension));
    for (bool with_bare : {false, true}) {
      const Messages messages = translator(c.writer).must_write(hard_cubes(with_bare), file, c.options);
      EXPECT_EQ(messages.notes.find("normals") != std::string::npos, with_bare && c.fills_bare) << messages.notes;
      const Reading reading = translator(c.reader).must_read(file, c.options);
      ASSERT_EQ(reading.document.root.children.size(), c.meshes + (with_bare && c.meshes > 1 ? 1 : 0));
      for (std::size_t i = 0; i < c.meshes; ++i) {
        expect_normals_of_faces(reading.mesh(i), true);
        EXPECT_EQ(ann_open_edges(reading.mesh(i)), 0U);
      }
      if (with_bare && c.meshes > 1) expect_normals_of_faces(reading.mesh(2), false);
      EXPECT_TRUE(with_bare || reading.mesh().vertices->points.size() == c.vertices);
    }
    const Messages messages = translator(c.writer).must_write(hard_cubes(true), file, {{"WRITE_NORMALS", "0"}});
    EXPECT_FALSE(translator(c.reader).must_read(file).mesh().has_normals());
    EXPECT_EQ(messages.notes.find("normals"), std::string::npos) << messages.notes;
  }
}

TEST(Normals, AreNotMadeUpForPointsAlone) {
  TemporaryDirectory directory;
  annDocument document = hard_cubes(false);
  document.root.add_child("points").body.mesh = mesh_of({{0, 0, 0}}, {});
  for (const std::string format : {"ply", "off"}) {
    const Messages messages = translator(format + "writer").must_write(document, directory / format);
    EXPECT_NE(messages.notes.find("no normals are written"), std::string::npos) << messages.notes;
    EXPECT_FALSE(translator(format + "reader").must_read(directory / format).mesh().has_normals());
  }
}

TEST(Normals, AreCountedAsLostOfCornersToo) {
  TemporaryDirectory directory;
  const Messages messages = translator("stlwriter").must_write(hard_cubes(false), directory / "a.stl");
  EXPECT_NE(messages.notes.find("holds no vertex normals"), std::string::npos) << messages.notes;
}

}  // namespace
