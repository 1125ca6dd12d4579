#include <gtest/gtest.h>

#include "ThreemfFile.h"

namespace {

// Attributes of a model that requires an extension.
std::string requiring(const std::string& extension) {
  return "xmlns:x=\"http://schemas.microsoft.com/3dmanufacturing/" + extension + "\" requiredextensions=\"x\"";
}

TEST(ThreemfReader, BuildsTheTree) {
  TemporaryDirectory directory;
  const std::string a = mesh("1", "name=\"a\""), nameless = mesh("1");
  const std::string two = a + mesh("2", "partnumber=\"b\"");
  const std::string further = model(mesh("1", "name=\"x\"") + assembly("2", use("1") + use("1", move)), "");
  const Case cases[] = {
      {"items in order", only(model(two, item("2") + item("1", move + " printable=\"0\"") + item("2"))),
       "b* a*,5,6,7 b*"},
      {"part number of the item", only(model(nameless, item("1", "partnumber=\"n\""))), "n*"},
      {"assemblies",
       only(model(two + assembly("3", use("1") + use("2", move), "name=\"inner\"") +
                      assembly("4", use("3", move) + use("3"), "name=\"top\""),
                  item("4"))),
       "top(inner,5,6,7(a* b*,5,6,7) inner(a* b*,5,6,7))"},
      {"another name for a mesh", only(model(nameless + assembly("2", use("1"), "name=\"n\""), item("2"))), "n*"},
      {"a mesh of its own name", only(model(a + assembly("2", use("1"), "name=\"n\""), item("2"))), "n(a*)"},
      {"not built", only(model(two, item("1"))), "a*", "one object is left out"},
      {"empty objects", only(model(a + mesh("2", "", "") + assembly("3", use("2")), item("3") + item("1"))), "a*",
       "without triangles"},
      {"support", only(model(mesh("1", "type=\"support\""), item("1"))), "*", "line 6: objects of type \"support\""},
      {"unknown things",
       only(model("<c:odd><c:object id=\"9\"/></c:odd><b:x id=\"y\"/><m:texture2d id=\"8\"/>" + a,
                  item("1", "m:x=\"1\""))),
       "a*", "element \"odd\""},
      {"vertex twice", only(model(mesh("1", "", "<c:triangle v1=\"0\" v2=\"0\" v3=\"1\"/>"), item("1"))), "*",
       "name a vertex twice"},
      {"extension", only(model("<b:beams/>" + a, item("1"))), "a*", "beamlattice/2017/02\" are left out"},
      {"lattice required", only(model(a, item("1"), "requiredextensions=\"p b\"")), "a*",
       "whose beams and balls are left out"},
      {"slices required", only(model(a, item("1"), requiring("slice/2015/07"))), "a*", "whose slices are left out"},
      {"unknown extension required", only(model(a, item("1"), requiring("odd/2015/07"))), "a*", "which is not known"},
      {"name of an instance", only(model(a, item("1", "xmlns:i=\"urn:velbase:3mf:instance\" i:name=\"a_1\""))),
       "a=a_1*"},
      {"nothing built", only(model(a, "")), "", "one object is left out"},
      {"UTF-8 mark and folded names",
       {{"_RELS/.rels", relationships({"3d/My%20Model.model"})},
        {"3D/my model.MODEL", "\xEF\xBB\xBF" + model(a, item("1"))}},
       "a*"},
      {"several parts",
       {start,
        {"3D/_rels/3dmodel.model.rels", relationships({"other.model"})},
        {"3D/other.model", further},
        {"3D/3dmodel.model",
         model(assembly("1", use("2", "p:path=\"/3D/Other.model\""), "name=\"a\"") + mesh("2"),
               item("1") + item("2") + item("2", "p:path=\"/3D/other.model\" " + move), "requiredextensions=\"p m\"")}},
       "a((x* x*,5,6,7)) * ,5,6,7(x* x*,5,6,7)"}};
  for (const Case& c : cases) check(c, directory);

  const Reading unsupported = reader.read(pack(directory, only(model(a + mesh("2", "type=\"support\""), item("1")))));
  EXPECT_EQ(unsupported.messages.notes.find("support"), std::string::npos) << unsupported.messages.notes;

  const Reading reading =
      reader.read(pack(directory, only(model(two + assembly("3", use("1")), item("1", move) + item("3")))));
  EXPECT_EQ(reading.node(0).body.mesh, reading.node(1).children.at(0)->body.mesh);
  EXPECT_EQ(reading.node(0).transform.point({1, 2, 3}), (annVector{3, 7, 10}));
}

TEST(ThreemfReader, TakesUnitsOfAllParts) {
  TemporaryDirectory directory;
  for (const auto& [text, unit] : {std::pair{"micron", velLENGTH_MICROMETRE},
                                   {"centimeter", velLENGTH_CENTIMETRE},
                                   {"inch", velLENGTH_INCH},
                                   {"foot", velLENGTH_FOOT},
                                   {"meter", velLENGTH_METRE}}) {
    const std::string attribute = std::string("unit=\"") + text + "\"";
    const Parts parts = {
        start,
        {"3D/_rels/3dmodel.model.rels", relationships({"o.model"})},
        {"3D/o.model", model(mesh("1"), "")},
        {"3D/3dmodel.model", model(mesh("2"), item("2", move) + item("1", "p:path=\"/3D/o.model\""), attribute)}};
    const Reading reading = reader.read(pack(directory, parts), {{"SCALE", "2"}});
    EXPECT_EQ(reading.document.unit, unit);
    EXPECT_EQ(reading.mesh(0).vertices->points[1].x, 2);
    EXPECT_EQ(reading.node(0).transform.m[3], 10);
    EXPECT_EQ(reading.mesh(1).vertices->points[1].x, 2 * vel_length_ratio(velLENGTH_MILLIMETRE, unit));
  }
}

TEST(ThreemfReader, TakesColoursOfObjectsFacesAndCorners) {
  TemporaryDirectory directory;
  const std::string groups =
      "<c:basematerials id=\"5\"><c:base name=\"steel\" displaycolor=\"#336699\"/></c:basematerials>"
      "<m:colorgroup id=\"6\"><m:color color=\"#ff000080\"/><m:color color=\"#0000FF\"/></m:colorgroup>"
      "<m:texture2dgroup id=\"7\" texid=\"8\"/>";
  const annColour steel{0.2F, 0.4F, 0.6F, 1}, red{1, 0, 0, 128 / 255.0F}, blue{0, 0, 1, 1}, white{1, 1, 1, 1};
  const std::string one = "<c:triangle v1=\"0\" v2=\"1\" v3=\"2\" ", two = "/><c:triangle v1=\"0\" v2=\"3\" v3=\"1\" ";
  struct {
    const char* what;
    std::string object, first, second;
    std::optional<annColour> whole;
    std::vector<annMaterial> of_faces;  // one for each, an empty list for none
    std::vector<annColour> of_vertices;
  } cases[] = {
      {"none", "", "", "", {}, {}, {}},
      {"object", "pid=\"6\" pindex=\"0\"", "", "", red, {}, {}},
      {"material", "pid=\"5\" pindex=\"0\"", "", "", {}, {{"steel", steel}, {"steel", steel}}, {}},
      {"faces",
       "pid=\"6\" pindex=\"0\"",
       "p1=\"1\"",
       "pid=\"5\" p1=\"0\" p2=\"9\"",
       {},
       {{"", blue}, {"steel", steel}},
       {}},
      {"texture", "", "pid=\"7\" p1=\"3\"", "", {}, {}, {}},
      {"corners", "", "pid=\"6\" p1=\"0\" p2=\"0\" p3=\"1\"", "pid=\"6\" p1=\"0\"", {}, {}, {red, red, blue, red}},
      {"split", "", "", "pid=\"6\" p1=\"0\" p2=\"1\" p3=\"1\"", {}, {}, {white, white, white, blue, red, blue}}};
  for (const auto& c : cases) {
    const std::string file =
        pack(directory, only(model(groups + mesh("1", c.object, one + c.first + two + c.second + "/>"), item("1"))));
    const Reading reading = reader.must_read(file);
    EXPECT_EQ(reading.node(0).colour, c.whole) << c.what;
    EXPECT_EQ(reading.mesh().vertices->colours, c.of_vertices) << c.what;
    ASSERT_EQ(reading.mesh().face_materials.size(), c.of_faces.size()) << c.what;
    for (std::size_t i = 0; i < c.of_faces.size(); ++i) {
      EXPECT_EQ(reading.mesh().materials.at(reading.mesh().face_material(i)), c.of_faces[i]) << c.what;
    }
    EXPECT_NE(reading.messages.notes.find("texture2dgroup is left out"), std::string::npos);
    const Reading plain = reader.read(file, {{"READ_MATERIALS", "0"}});
    EXPECT_FALSE(plain.node(0).colour || !plain.mesh().materials.empty() || !plain.mesh().vertices->colours.empty());
  }
}

}  // namespace
