#include <gtest/gtest.h>

#include "Solids.h"
#include "ThreemfFile.h"
#include "annVertexSplitting.h"

namespace {

std::shared_ptr<annMesh> square() {
  return mesh_of({{0, 0, 0}, {0.1, 0, 0}, {0.1, 1, 0}, {0, 1, 0}, {9, 9, 9}}, {{0, 1, 2, 3}});
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

  const Messages messages = writer.must_write(document, directory / "a.3mf");
  EXPECT_NE(messages.notes.find("2 nodes are left out"), std::string::npos) << messages.notes;
  EXPECT_NE(messages.warnings.find("flattens: 1 node is left out"), std::string::npos) << messages.warnings;
  EXPECT_NE(messages.warnings.find("marks in their place"), std::string::npos);
  const Reading reading = reader.must_read(directory / "a.3mf");
  EXPECT_EQ(outline(reading.document.root),
            "t & \"<\n\xC3\xA9,5,0,0(* inner=inner & 1(a* b* b=b_2*)) c\xEF\xBF\xBD\xEF\xBF\xBD*");
  EXPECT_EQ(reading.document.unit, velLENGTH_INCH);
  const auto& parts = reading.node(0).children.at(1)->children;
  EXPECT_EQ(parts.at(0)->body.mesh, parts.at(2)->body.mesh);
  EXPECT_EQ(parts.at(0)->body.mesh, reading.node(0).children.at(0)->body.mesh);
  EXPECT_EQ(parts.at(0)->body.mesh->vertices->points, shared->vertices->points);

  writer.must_write(reading.document, directory / "b.3mf");
  writer.must_write(reader.read(directory / "b.3mf").document, directory / "c.3mf");
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

  writer.must_write(document, directory / "a.3mf");
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
  const auto second = mesh_of({}, {{4, 1, 0}, {0, 1, 4}});  // some of the vertices of the first
  second->vertices = first->vertices;
  second->materials = {{"steel", {0, 1, 0, 1}}, {"glass", {1, 0, 0, 0.5F}}};
  second->face_materials = {0, 1};
  document.root.add_child("a").body.mesh = first;
  document.root.add_child("b").body.mesh = second;
  document.root.children[1]->transform.m[3] = 2;
  auto third = square();
  third->vertices->points.pop_back();
  document.root.add_child("c").body.mesh = third;
  document.root.children[2]->colour = annColour{0, 0, 1, 1};
  const Messages messages =
      writer.must_write(document, directory / "a.3mf", {{"LENGTH_UNIT", "centimetre"}, {"DIGITS", "3"}});
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
  const Messages messages = writer.must_write(document, directory / "a.3mf");
  EXPECT_NE(messages.notes.find("its numbers count as millimetres"), std::string::npos) << messages.notes;
  const Reading reading = reader.read(directory / "a.3mf");
  EXPECT_EQ(reading.node(0).children.at(0)->colour, red);
  EXPECT_EQ(reading.node(0).children.at(1)->colour, blue);

  // An object some of whose triangles have a look needs one for the others.
  const auto partly = square();
  partly->add_face(std::vector<std::uint32_t>{0, 1, 4});
  partly->materials = {{"", blue}};
  partly->set_face_material(0, 0);
  writer.must_write(document_of(partly, "partly"), directory / "b.3mf");
  const std::string text = unpack(directory / "b.3mf", "3D/3dmodel.model");
  EXPECT_NE(text.find("<m:color color=\"#FFFFFF\"/>"), std::string::npos) << text;
  EXPECT_NE(text.find("name=\"partly\" pid=\"2\""), std::string::npos) << text;
  writer.must_write(document, directory / "a.3mf", {{"WRITE_MATERIALS", "0"}});
  EXPECT_EQ(unpack(directory / "a.3mf", "3D/3dmodel.model").find("pid"), std::string::npos);
}

TEST(ThreemfWriter, ConvertsUnitsThatTheFormatDoesNotKnow) {
  TemporaryDirectory directory;
  for (const auto& [unit, written, factor] : {std::tuple{velLENGTH_KILOMETRE, velLENGTH_METRE, 1000.0},
                                              {velLENGTH_MIL, velLENGTH_INCH, 0.001},
                                              {velLENGTH_YARD, velLENGTH_FOOT, 3.0},
                                              {velLENGTH_UNSPECIFIED, velLENGTH_MILLIMETRE, 1.0}}) {
    annDocument document = document_of(square());
    document.unit = unit;
    document.root.children[0]->transform.m[3] = 4;
    EXPECT_NE(writer.must_write(document, directory / "a.3mf").notes, "");
    const Reading reading = reader.read(directory / "a.3mf");
    EXPECT_EQ(reading.document.unit, written);
    EXPECT_EQ(reading.mesh().vertices->points[4].x, 9 * factor);
    EXPECT_EQ(reading.node(0).transform.m[3], 4 * factor);
  }
}

TEST(ThreemfWriter, SaysWhyItCannotWrite) {
  TemporaryDirectory directory;
  const struct {
    std::shared_ptr<annMesh> mesh;
    const char *key, *value, *reason;
  } cases[] = {{square(), "SCALE", "1.7e308", "too large"},
               {square(), "JOIN_TOLERANCE", "100", "join-tolerance joins the corners of all triangles"},
               {mesh_of({{0, 0, 0}}, {}), "SCALE", "1", "no faces, only vertices, and 3MF"},
               {mesh_of({{0, 0, 0}, {1, 0, 0}, {0, 0, 0}}, {{0, 1, 2}}), "SCALE", "1", "have equal corners"}};
  for (const auto& c : cases) {
    writer.must_not_write(document_of(c.mesh), directory / "a.3mf", c.reason, {{c.key, c.value}});
  }
}

// A unit cube whose six sides have vertices of their own, each side in a colour of its own.
std::shared_ptr<annMesh> split_cube() {
  std::vector<std::shared_ptr<const annMesh>> meshes{with_face_normals(*cube(1))};
  ann_split_vertices(meshes);
  const auto split = std::make_shared<annMesh>(*meshes[0]);
  split->face_materials.clear();
  split->vertices->colours.resize(24);
  for (std::size_t i = 0; i < 24; ++i) split->vertices->colours[split->corners[i]].red = static_cast<float>(i / 4) / 5;
  return split;
}

TEST(ThreemfWriter, JoinsVerticesByPosition) {
  TemporaryDirectory directory;
  struct Case {
    const char* what;
    double moved;  // by which one of the three corners at (1, 1, 1) lies elsewhere
    Options options;
    std::size_t vertices, open_edges;
    double scale = 1;  // of the node
  } cases[] = {{"equal", 0, {}, 8, 0},
               {"beside", 1e-4, {}, 9, 4},
               {"equal as text", 1e-4, {{"DIGITS", "3"}}, 8, 0},
               {"within the tolerance", 1e-4, {{"JOIN_TOLERANCE", "0.00011"}}, 8, 0},
               {"beyond it", 1e-4, {{"JOIN_TOLERANCE", "0.00009"}}, 9, 4},
               {"in the unit of the file", 1e-4, {{"JOIN_TOLERANCE", "0.00009"}, {"LENGTH_UNIT", "metre"}}, 8, 0},
               {"as placed", 1e-4, {{"JOIN_TOLERANCE", "0.9"}}, 9, 4, 1e4},
               {"as placed, within", 1e-4, {{"JOIN_TOLERANCE", "1.1"}}, 8, 0, 1e4}};
  for (const Case& c : cases) {
    const auto cube = split_cube();
    for (std::size_t i = 0; i < 24 && c.moved > 0; ++i) {
      if (!(cube->vertices->points[i] == annVector{1, 1, 1})) continue;
      cube->vertices->points[i].x += c.moved;
      break;
    }
    annDocument document = document_of(cube);
    document.root.children[0]->transform = annTransform::scaling(c.scale);
    const Messages messages = writer.must_write(document, directory / "a.3mf", c.options);
    const std::string open = std::to_string(c.open_edges) + " open edges";
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
      EXPECT_EQ(mesh.materials.at(mesh.face_materials[face]).colour,
                cube->vertices->colours[cube->corners[face / 2 * 4]])
          << c.what;
    }
  }
}

TEST(ThreemfWriter, LeavesOutTrianglesWithEqualCorners) {
  TemporaryDirectory directory;
  const auto mesh = square();
  mesh->vertices->points[4] = {0.1, 0, 0};
  mesh->add_face(std::vector<std::uint32_t>{0, 1, 4});
  mesh->add_face(std::vector<std::uint32_t>{2, 3, 2});
  const Messages messages = writer.must_write(document_of(mesh), directory / "a.3mf");
  EXPECT_NE(messages.notes.find("equal corners: 2 triangles are left out"), std::string::npos) << messages.notes;
  EXPECT_EQ(reader.read(directory / "a.3mf").mesh().corners, (std::vector<std::uint32_t>{0, 1, 2, 0, 2, 3}));
}

}  // namespace
