#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

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

struct Format {
  const char *reader, *writer, *extension;
  std::size_t meshes, vertices;  // read of the two hard cubes; the vertices that their first mesh refers to
  bool fills_bare;
  Options options = {};
};

// Every normal in a model of cubes is that of its face.
void expect_normals_of_faces(const annMesh& mesh, bool expect_all, const char* what) {
  std::size_t corner = 0, missing = 0;
  for (std::size_t face = 0; face < mesh.face_count(); ++face) {
    const annVector expected = mesh.face_normal(face);
    for (std::size_t i = 0; i < mesh.face(face).size(); ++i, ++corner) {
      const annVector* const normal = mesh.normal(corner);
      if (!normal) {
        ++missing;
      } else {
        EXPECT_NEAR(ann_dot(*normal, expected), 1, 1e-6) << what << " face " << face;
      }
    }
  }
  EXPECT_EQ(missing, expect_all ? 0 : mesh.corners.size()) << what;
}

TEST(Normals, OfHardEdgesComeThroughEveryFormat) {
  TemporaryDirectory directory;
  const Format formats[] = {{"objreader", "objwriter", "obj", 2, 16, false},
                            {"plyreader", "plywriter", "ply", 1, 48, true, {{"FILE_FORMAT", "ascii"}}},
                            {"plyreader", "plywriter", "ply", 1, 48, true},
                            {"offreader", "offwriter", "off", 1, 48, true},
                            {"gltfreader", "glbwriter", "glb", 2, 24, false, {{"WELD_POINTS", "0"}}},
                            {"gltfreader", "glbwriter", "glb", 2, 8, false, {{"WELD_POINTS", "1"}}}};
  for (const Format& format : formats) {
    if (!std::filesystem::exists(std::string(VEL_TRANSLATORS) + "/" + format.writer + ".dll")) continue;
    const Translator reader(format.reader), writer(format.writer);
    const std::string file = directory / ("a." + std::string(format.extension));
    for (bool with_bare : {false, true}) {
      Messages messages;
      ASSERT_EQ(writer.write(hard_cubes(with_bare), file, messages, format.options), velabsDONE) << messages.errors;
      EXPECT_EQ(messages.notes.find("normals") != std::string::npos, with_bare && format.fills_bare) << messages.notes;
      const Reading reading = reader.read(file, format.options);
      ASSERT_EQ(reading.result, velabsDONE) << reading.messages.errors;
      ASSERT_EQ(reading.document.root.children.size(), format.meshes + (with_bare && format.meshes > 1 ? 1 : 0));
      for (std::size_t i = 0; i < format.meshes; ++i) {
        expect_normals_of_faces(reading.mesh(i), true, format.extension);
        EXPECT_EQ(ann_open_edges(reading.mesh(i)), 0U) << format.extension;
      }
      if (with_bare && format.meshes > 1) expect_normals_of_faces(reading.mesh(2), false, format.extension);
      if (with_bare) continue;
      EXPECT_EQ(reading.mesh().vertices->points.size(), format.vertices) << format.extension;
    }
    Messages messages;
    const Options without{{"WRITE_NORMALS", "0"}};
    ASSERT_EQ(writer.write(hard_cubes(true), file, messages, without), velabsDONE) << messages.errors;
    const Reading bare = reader.read(file);
    EXPECT_FALSE(bare.mesh().has_normals()) << format.extension;
    EXPECT_EQ(messages.notes.find("normals"), std::string::npos) << messages.notes;
  }
}

TEST(Normals, AreNotMadeUpForPointsAlone) {
  TemporaryDirectory directory;
  annDocument document = hard_cubes(false);
  auto points = std::make_shared<annMesh>();
  points->vertices->points = {{0, 0, 0}};
  document.root.add_child("points").body.mesh = points;
  for (const char* format : {"ply", "off"}) {
    const std::string file = directory / ("a." + std::string(format));
    Messages messages;
    ASSERT_EQ(Translator(format + std::string("writer")).write(document, file, messages), velabsDONE);
    EXPECT_NE(messages.notes.find("no normals are written"), std::string::npos) << messages.notes;
    EXPECT_FALSE(Translator(format + std::string("reader")).read(file).mesh().has_normals());
  }
}

TEST(Normals, AreCountedAsLostOfCornersToo) {
  TemporaryDirectory directory;
  Messages messages;
  ASSERT_EQ(Translator("stlwriter").write(hard_cubes(false), directory / "a.stl", messages), velabsDONE);
  EXPECT_NE(messages.notes.find("holds no vertex normals"), std::string::npos) << messages.notes;
}

}  // namespace
