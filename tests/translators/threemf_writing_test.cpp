#include <gtest/gtest.h>

#include <limits>

#include "ThreemfFile.h"

namespace {

std::shared_ptr<annMesh> square() {
  auto result = std::make_shared<annMesh>();
  result->vertices->points = {{0, 0, 0}, {0.1, 0, 0}, {0.1, 1, 0}, {0, 1, 0}, {9, 9, 9}};
  result->add_face(std::vector<std::uint32_t>{0, 1, 2, 3});
  return result;
}

TEST(ThreemfWriter, KeepsTheTree) {
  TemporaryDirectory directory;
  annDocument document;
  document.unit = velLENGTH_INCH;
  const auto shared = square();
  annNode& top = document.root.add_child("t & \"<\n\xC3\xA9");
  top.transform.m[3] = 5;
  top.body.mesh = shared;
  annNode& inner = top.add_child("inner");
  inner.add_child("a").body.mesh = shared;
  inner.instance_name = "inner & 1";
  inner.add_child("b").body.mesh = shared;
  inner.add_child("b").body.mesh = shared;
  inner.children.back()->instance_name = "b_2";
  top.add_child("gone").add_child("gone");
  annNode& flat = document.root.add_child("flat");
  flat.transform.m[10] = 0;
  flat.body.mesh = shared;
  document.root.add_child("c\x01\xFF").body.mesh = square();

  Messages messages;
  ASSERT_EQ(writer.write(document, directory / "a.3mf", messages), velabsDONE) << messages.errors;
  EXPECT_NE(messages.notes.find("2 nodes are left out"), std::string::npos) << messages.notes;
  EXPECT_NE(messages.warnings.find("flattens: 1 node is left out"), std::string::npos) << messages.warnings;
  EXPECT_NE(messages.warnings.find("marks in their place"), std::string::npos);
  const Reading reading = reader.read(directory / "a.3mf");
  ASSERT_EQ(reading.result, velabsDONE) << reading.messages.errors;
  EXPECT_EQ(outline(reading.document.root),
            "t & \"<\n\xC3\xA9,5,0,0(* inner=inner & 1(a* b* b=b_2*)) c\xEF\xBF\xBD\xEF\xBF\xBD*");
  EXPECT_EQ(reading.document.unit, velLENGTH_INCH);
  const auto& parts = reading.node(0).children.at(1)->children;
  EXPECT_EQ(parts.at(0)->body.mesh, parts.at(2)->body.mesh);
  EXPECT_EQ(parts.at(0)->body.mesh, reading.node(0).children.at(0)->body.mesh);
  EXPECT_EQ(parts.at(0)->body.mesh->vertices->points, shared->vertices->points);

  ASSERT_EQ(writer.write(reading.document, directory / "b.3mf", messages), velabsDONE);
  ASSERT_EQ(writer.write(reader.read(directory / "b.3mf").document, directory / "c.3mf", messages), velabsDONE);
  EXPECT_EQ(TemporaryDirectory::read(directory / "b.3mf"), TemporaryDirectory::read(directory / "c.3mf"));
}

TEST(ThreemfWriter, TurnsMeshesInsteadOfMirroringPlaces) {
  TemporaryDirectory directory;
  annDocument document;
  document.root.transform.m = {0, 0, 1, 1, 0, 1, 0, 2, 1, 0, 0, 3};
  annNode& outer = document.root.add_child("outer");
  outer.transform = annTransform::scaling(-2);
  annNode& part = outer.add_child("part");
  part.transform.m = {0, -3, 0, 7, -1, 0, 0, 0, 0, 0, 1, 0};
  part.body.mesh = outer.add_child("other").body.mesh = square();

  Messages messages;
  ASSERT_EQ(writer.write(document, directory / "a.3mf", messages), velabsDONE) << messages.errors;
  const Reading reading = reader.read(directory / "a.3mf");
  const auto before = ann_placed_bodies(document), after = ann_placed_bodies(reading.document);
  ASSERT_EQ(after.size(), before.size());
  for (std::size_t i = 0; i < before.size(); ++i) {
    EXPECT_FALSE(after[i].node->transform.mirrors());
    auto point = [&](const annPlacedBody& body, std::size_t corner) {
      const annMesh& mesh = *body.node->body.mesh;
      return body.placement.point(mesh.vertices->points[mesh.corners[corner]]);
    };
    const bool turned = before[i].placement.mirrors();
    for (std::size_t corner : {0, 1, 2}) {
      EXPECT_EQ(point(after[i], corner), point(before[i], turned && corner > 0 ? 3 - corner : corner)) << i << corner;
    }
  }
}

TEST(ThreemfWriter, SpellsTheModelExactly) {
  TemporaryDirectory directory;
  annDocument document;
  document.unit = velLENGTH_MILLIMETRE;
  auto first = square();
  first->vertices->colours.assign(5, {1, 0, 0, 0.5F});
  first->add_face(std::vector<std::uint32_t>{0, 1, 4});
  first->materials = {{"unused", {}}, {"hidden", {0, 0, 1, 1}}};
  first->set_face_material(1, 1);
  auto second = std::make_shared<annMesh>();  // some of the vertices of the first
  second->vertices = first->vertices;
  second->add_face(std::vector<std::uint32_t>{4, 1, 0});
  second->materials = {{"steel", {0, 1, 0, 1}}};
  second->set_face_material(0, 0);
  document.root.add_child("a").body.mesh = first;
  annNode& b = document.root.add_child("b");
  b.body.mesh = second;
  b.transform.m[3] = 2;
  second->add_face(std::vector<std::uint32_t>{0, 1, 4});
  second->materials.push_back({"glass", {1, 0, 0, 0.5F}});
  second->set_face_material(1, 1);
  auto third = square();
  third->vertices->points.pop_back();
  document.root.add_child("c").body.mesh = third;
  document.root.children[2]->colour = annColour{0, 0, 1, 1};
  Messages messages;
  ASSERT_EQ(writer.write(document, directory / "a.3mf", messages, {{"LENGTH_UNIT", "centimetre"}, {"DIGITS", "3"}}),
            velabsDONE);
  EXPECT_NE(messages.notes.find("other colours than its material"), std::string::npos);
  const std::string text = unpack(directory / "a.3mf", "3D/3dmodel.model");
  const std::string a = "<vertex x=\"0\" y=\"0\" z=\"0\"/>\n<vertex x=\"0.01\" y=\"0\" z=\"0\"/>\n",
                    bc = "<vertex x=\"0.01\" y=\"0.1\" z=\"0\"/>\n<vertex x=\"0\" y=\"0.1\" z=\"0\"/>\n",
                    d = "<vertex x=\"0.9\" y=\"0.9\" z=\"0.9\"/>\n", more = "</vertices>\n<triangles>\n",
                    end = "</triangles>\n</mesh>\n</object>\n";
  EXPECT_EQ(text.substr(text.find("<model")),
            "<model unit=\"centimeter\" xml:lang=\"en-US\" "
            "xmlns=\"http://schemas.microsoft.com/3dmanufacturing/core/2015/02\" "
            "xmlns:m=\"http://schemas.microsoft.com/3dmanufacturing/material/2015/02\">\n<resources>\n"
            "<basematerials id=\"1\">\n<base name=\"glass\" displaycolor=\"#FF000080\"/>\n</basematerials>\n"
            "<m:colorgroup id=\"2\">\n<m:color color=\"#FF000080\"/>\n<m:color color=\"#0000FF\"/>\n</m:colorgroup>\n"
            "<object id=\"3\" type=\"model\" name=\"a\" pid=\"2\" pindex=\"0\">\n<mesh>\n<vertices>\n" +
                a + bc + d + more +
                "<triangle v1=\"0\" v2=\"1\" v3=\"2\" pid=\"2\" p1=\"0\" p2=\"0\" p3=\"0\"/>\n"
                "<triangle v1=\"0\" v2=\"2\" v3=\"3\" pid=\"2\" p1=\"0\" p2=\"0\" p3=\"0\"/>\n"
                "<triangle v1=\"0\" v2=\"1\" v3=\"4\" pid=\"2\" p1=\"0\" p2=\"0\" p3=\"0\"/>\n" +
                end + "<object id=\"4\" type=\"model\" name=\"b\" pid=\"2\" pindex=\"0\">\n<mesh>\n<vertices>\n" + a +
                d + more +
                "<triangle v1=\"2\" v2=\"1\" v3=\"0\" pid=\"2\" p1=\"0\" p2=\"0\" p3=\"0\"/>\n"
                "<triangle v1=\"0\" v2=\"1\" v3=\"2\" pid=\"1\" p1=\"0\"/>\n" +
                end + "<object id=\"5\" type=\"model\" name=\"c\" pid=\"2\" pindex=\"1\">\n<mesh>\n<vertices>\n" + a +
                bc + more + "<triangle v1=\"0\" v2=\"1\" v3=\"2\"/>\n<triangle v1=\"0\" v2=\"2\" v3=\"3\"/>\n" + end +
                "</resources>\n<build>\n<item objectid=\"3\"/>\n"
                "<item objectid=\"4\" transform=\"1 0 0 0 1 0 0 0 1 0.2 0 0\"/>\n<item "
                "objectid=\"5\"/>\n</build>\n</model>\n");
}

TEST(ThreemfWriter, KeepsColoursApart) {
  TemporaryDirectory directory;
  annDocument document;
  const auto shared = square();
  const annColour red{1, 0, 0, 1}, blue{0, 0, 1, 1};
  annNode& group = document.root.add_child("g");
  group.colour = red;
  group.add_child("x").body.mesh = shared;
  annNode& other = group.add_child("x");
  other.body.mesh = shared;
  other.colour = blue;
  Messages messages;
  ASSERT_EQ(writer.write(document, directory / "a.3mf", messages), velabsDONE);
  EXPECT_NE(messages.notes.find("its numbers count as millimetres"), std::string::npos) << messages.notes;
  const Reading reading = reader.read(directory / "a.3mf");
  EXPECT_EQ(reading.node(0).children.at(0)->colour, red);
  EXPECT_EQ(reading.node(0).children.at(1)->colour, blue);

  // An object some of whose triangles have a look needs one for the others.
  const auto partly = square();
  partly->add_face(std::vector<std::uint32_t>{0, 1, 4});
  partly->materials = {{"", blue}};
  partly->set_face_material(0, 0);
  annDocument mixed;
  mixed.root.add_child("partly").body.mesh = partly;
  ASSERT_EQ(writer.write(mixed, directory / "b.3mf", messages), velabsDONE);
  const std::string text = unpack(directory / "b.3mf", "3D/3dmodel.model");
  EXPECT_NE(text.find("<m:color color=\"#FFFFFF\"/>"), std::string::npos) << text;
  EXPECT_NE(text.find("name=\"partly\" pid=\"2\""), std::string::npos) << text;
  ASSERT_EQ(writer.write(document, directory / "a.3mf", messages, {{"WRITE_MATERIALS", "0"}}), velabsDONE);
  EXPECT_EQ(unpack(directory / "a.3mf", "3D/3dmodel.model").find("pid"), std::string::npos);
}

TEST(ThreemfWriter, ConvertsUnitsThatTheFormatDoesNotKnow) {
  TemporaryDirectory directory;
  for (const auto& [unit, written, factor] : {std::tuple{velLENGTH_KILOMETRE, velLENGTH_METRE, 1000.0},
                                              {velLENGTH_MIL, velLENGTH_INCH, 0.001},
                                              {velLENGTH_YARD, velLENGTH_FOOT, 3.0},
                                              {velLENGTH_UNSPECIFIED, velLENGTH_MILLIMETRE, 1.0}}) {
    annDocument document;
    document.unit = unit;
    annNode& part = document.root.add_child("a");
    part.body.mesh = square();
    part.transform.m[3] = 4;
    Messages messages;
    ASSERT_EQ(writer.write(document, directory / "a.3mf", messages), velabsDONE);
    EXPECT_FALSE(messages.notes.empty());
    const Reading reading = reader.read(directory / "a.3mf");
    EXPECT_EQ(reading.document.unit, written);
    EXPECT_EQ(reading.mesh().vertices->points[4].x, 9 * factor);
    EXPECT_EQ(reading.node(0).transform.m[3], 4 * factor);
  }
}

TEST(ThreemfWriter, SaysWhyItCannotWrite) {
  TemporaryDirectory directory;
  annDocument document;
  Messages messages;
  EXPECT_EQ(writer.write(document, directory / "a.3mf", messages), velabsFAILED);
  EXPECT_NE(messages.errors.find("no shape"), std::string::npos) << messages.errors;
  document.root.add_child("").body.mesh = square();
  EXPECT_EQ(writer.write(document, directory / "a.3mf", messages, {{"SCALE", "1.7e308"}}), velabsFAILED);
  EXPECT_NE(messages.errors.find("too large"), std::string::npos) << messages.errors;
  auto points = std::make_shared<annMesh>(), flat = std::make_shared<annMesh>();
  points->vertices->points = {{0, 0, 0}};
  flat->vertices->points = {{0, 0, 0}, {1, 0, 0}, {0, 0, 0}};
  flat->add_face(std::vector<std::uint32_t>{0, 1, 2});
  document.root.children[0]->body.mesh = points;
  EXPECT_EQ(writer.write(document, directory / "a.3mf", messages), velabsFAILED);
  EXPECT_NE(messages.errors.find("no faces, only vertices, and 3MF"), std::string::npos) << messages.errors;
  document.root.children[0]->body.mesh = flat;
  EXPECT_EQ(writer.write(document, directory / "a.3mf", messages), velabsFAILED);
  EXPECT_NE(messages.errors.find("have equal corners"), std::string::npos) << messages.errors;
  EXPECT_FALSE(std::filesystem::exists(directory / "a.3mf"));
}

// A unit cube whose six sides have corners of their own, each side in a colour of its own.
std::shared_ptr<annMesh> split_cube() {
  auto cube = std::make_shared<annMesh>();
  for (int side = 0; side < 6; ++side) {
    const auto first = cube->vertices->count();
    const double level = side % 2;
    // Along the two other axes; the lower sides run the other way round.
    const double square[4][2] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    for (int corner = 0; corner < 4; ++corner) {
      const double* place = square[side % 2 ? corner : 3 - corner];
      const double values[3] = {level, place[0], place[1]};
      const int axis = side / 2;
      cube->vertices->points.push_back({values[(3 - axis) % 3], values[(4 - axis) % 3], values[(5 - axis) % 3]});
      cube->vertices->colours.push_back({static_cast<float>(side) / 5, 0, 0, 1});
    }
    cube->add_face(std::vector<std::uint32_t>{first, first + 1, first + 2, first + 3});
  }
  return cube;
}

TEST(ThreemfWriter, JoinsVerticesByPosition) {
  TemporaryDirectory directory;
  struct Case {
    const char* what;
    double moved;  // by which one of the three corners at (1, 1, 1) lies elsewhere
    Options options;
    std::size_t vertices, open_edges;
  } cases[] = {{"equal", 0, {}, 8, 0},
               {"beside", 1e-4, {}, 9, 4},
               {"equal as text", 1e-4, {{"DIGITS", "3"}}, 8, 0},
               {"within the tolerance", 1e-4, {{"JOIN_TOLERANCE", "0.00011"}}, 8, 0},
               {"beyond it", 1e-4, {{"JOIN_TOLERANCE", "0.00009"}}, 9, 4},
               {"in the unit of the file", 1e-4, {{"JOIN_TOLERANCE", "0.00009"}, {"LENGTH_UNIT", "metre"}}, 8, 0}};
  for (const Case& c : cases) {
    annDocument document;
    document.unit = velLENGTH_MILLIMETRE;
    const auto cube = split_cube();
    for (std::size_t i = 0; i < 24 && c.moved > 0; ++i) {
      if (!(cube->vertices->points[i] == annVector{1, 1, 1})) continue;
      cube->vertices->points[i].x += c.moved;
      break;
    }
    document.root.add_child("cube").body.mesh = cube;
    Messages messages;
    ASSERT_EQ(writer.write(document, directory / "a.3mf", messages, c.options), velabsDONE) << c.what;
    const std::string open = std::to_string(c.open_edges) + " open edges";
    EXPECT_EQ(messages.notes.find("not closed") != std::string::npos, c.open_edges > 0) << c.what << messages.notes;
    EXPECT_EQ(messages.notes.find(open) != std::string::npos, c.open_edges > 0) << c.what << messages.notes;
    const std::string text = unpack(directory / "a.3mf", "3D/3dmodel.model");
    std::size_t vertices = 0;
    for (std::size_t at = text.find("<vertex "); at != text.npos; at = text.find("<vertex ", at + 1)) ++vertices;
    EXPECT_EQ(vertices, c.vertices) << c.what;

    // Each side keeps its colour: that of all corners of a triangle is the colour of the face.
    const Reading reading = reader.read(directory / "a.3mf");
    const annMesh& mesh = reading.mesh();
    ASSERT_EQ(mesh.face_count(), 12u) << c.what;
    ASSERT_EQ(mesh.face_materials.size(), 12u) << c.what;
    for (std::size_t face = 0; face < mesh.face_count(); ++face) {
      EXPECT_EQ(mesh.materials.at(mesh.face_materials[face]).colour, cube->vertices->colours[face / 2 * 4]) << c.what;
    }
  }
}

TEST(ThreemfWriter, LeavesOutTrianglesWithEqualCorners) {
  TemporaryDirectory directory;
  annDocument document;
  const auto mesh = square();
  mesh->vertices->points[4] = {0.1, 0, 0};
  mesh->add_face(std::vector<std::uint32_t>{0, 1, 4});
  mesh->add_face(std::vector<std::uint32_t>{2, 3, 2});
  document.root.add_child("a").body.mesh = mesh;
  Messages messages;
  ASSERT_EQ(writer.write(document, directory / "a.3mf", messages), velabsDONE);
  EXPECT_NE(messages.notes.find("equal corners: 2 triangles are left out"), std::string::npos) << messages.notes;
  EXPECT_EQ(reader.read(directory / "a.3mf").mesh().corners, (std::vector<std::uint32_t>{0, 1, 2, 0, 2, 3}));
}

}  // namespace
