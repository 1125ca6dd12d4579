#include <gtest/gtest.h>
#include <zip.h>

#include <algorithm>
#include <limits>

#include "TemporaryDirectory.h"
#include "Translator.h"

namespace {

const Translator reader("3mfreader");
const Translator writer("3mfwriter");

using Parts = std::vector<std::pair<std::string, std::string>>;

// Packs parts as they are given, two of one name among them.
std::string pack(const TemporaryDirectory& directory, const Parts& parts, bool encrypt = false) {
  const std::string file = directory / "case.3mf";
  zip_t* archive = zip_open(file.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
  for (const auto& [name, content] : parts) {
    zip_source_t* source = zip_source_buffer(archive, content.data(), content.size(), 0);
    const auto index = static_cast<zip_uint64_t>(zip_file_add(archive, name.c_str(), source, ZIP_FL_ENC_UTF_8));
    zip_set_file_compression(archive, index, ZIP_CM_DEFLATE, 1);
    if (encrypt) zip_file_set_encryption(archive, index, ZIP_EM_AES_256, "word");
  }
  if (zip_close(archive) != 0) throw std::runtime_error(zip_strerror(archive));
  return file;
}

std::string unpack(const std::string& file, const char* part) {
  zip_t* archive = zip_open(file.c_str(), ZIP_RDONLY, nullptr);
  zip_stat_t stat;
  if (!archive || zip_stat(archive, part, 0, &stat) != 0) throw std::runtime_error(part);
  std::string content(stat.size, '\0');
  zip_file_t* opened = zip_fopen(archive, part, 0);
  zip_fread(opened, content.data(), content.size());
  zip_fclose(opened);
  zip_discard(archive);
  return content;
}

std::string relationships(std::initializer_list<const char*> targets, const char* kind = "2013/01/3dmodel") {
  std::string text = "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">";
  for (const char* target : targets) {
    text += std::string("<Relationship Id=\"r\" Target=\"") + target +
            "\" Type=\"http://schemas.microsoft.com/3dmanufacturing/" + kind + "\"/>";
  }
  return text + "</Relationships>";
}

const std::pair<std::string, std::string> start{"_rels/.rels", relationships({"/3D/3dmodel.model"})};

std::string model(const std::string& resources, const std::string& build, const std::string& attributes = "") {
  return "<c:model xmlns:c=\"http://schemas.microsoft.com/3dmanufacturing/core/2015/02\"\n"
         " xmlns:m=\"http://schemas.microsoft.com/3dmanufacturing/material/2015/02\"\n"
         " xmlns:b=\"http://schemas.microsoft.com/3dmanufacturing/beamlattice/2017/02\"\n"
         " xmlns:p=\"http://schemas.microsoft.com/3dmanufacturing/production/2015/06\" " +
         attributes + ">\n<c:resources>\n" + resources + "</c:resources>\n<c:build>\n" + build +
         "</c:build>\n</c:model>\n";
}

const std::string four =
    "<c:vertices><c:vertex x=\"0\" y=\"0\" z=\"0\"/><c:vertex x=\"1\" y=\"0\" z=\"0\"/>"
    "<c:vertex x=\"0\" y=\"1\" z=\"0\"/><c:vertex x=\"0\" y=\"0\" z=\"1\"/></c:vertices>";
const std::string faces = "<c:triangle v1=\"0\" v2=\"1\" v3=\"2\"/><c:triangle v1=\"0\" v2=\"3\" v3=\"1\"/>";

std::string mesh(const std::string& id, const std::string& more = "", const std::string& triangles = faces) {
  return "<c:object id=\"" + id + "\" " + more + "><c:mesh>" + four + "<c:triangles>" + triangles +
         "</c:triangles></c:mesh></c:object>\n";
}

std::string assembly(const std::string& id, const std::string& components, const std::string& more = "") {
  return "<c:object id=\"" + id + "\" " + more + "><c:components>" + components + "</c:components></c:object>\n";
}

std::string use(const std::string& id, const std::string& more = "") {
  return "<c:component objectid=\"" + id + "\" " + more + "/>";
}
std::string item(const std::string& id, const std::string& more = "") {
  return "<c:item objectid=\"" + id + "\" " + more + "/>\n";
}

// Names, "*" for a body, the translation where there is one, children in brackets.
std::string outline(const annNode& node) {
  std::string result;
  for (const auto& child : node.children) {
    const auto& m = child->transform.m;
    result += (result.empty() ? "" : " ") + child->name.str() + (child->body.mesh ? "*" : "");
    if (m[3] != 0 || m[7] != 0 || m[11] != 0) {
      for (std::size_t i : {3, 7, 11}) result += "," + std::to_string(static_cast<int>(m[i]));
    }
    if (!child->children.empty()) result += "(" + outline(*child) + ")";
  }
  return result;
}

struct Case {
  const char* what;
  Parts parts;
  std::string expected;      // the outline, or a part of the error behind "!"
  const char* message = "";  // a part of the notes and warnings; none are allowed when empty
};

void check(const Case& c, const TemporaryDirectory& directory) {
  const Reading reading = reader.read(pack(directory, c.parts));
  EXPECT_FALSE(reading.fault()) << c.what;
  EXPECT_LE(std::count(reading.messages.errors.begin(), reading.messages.errors.end(), '\n'), 1) << c.what;
  if (c.expected.starts_with('!')) {
    EXPECT_NE(reading.messages.errors.find(c.expected.substr(1)), std::string::npos)
        << c.what << ": " << reading.messages.errors;
    return;
  }
  EXPECT_EQ(outline(reading.document.root), c.expected) << c.what << ": " << reading.messages.errors;
  const std::string said = reading.messages.warnings + reading.messages.notes;
  EXPECT_NE(said.find(c.message), said.npos) << c.what << ": " << said;
  EXPECT_EQ(said.empty(), !*c.message) << c.what << ": " << said;
}

Parts only(const std::string& text) {
  return {start, {"3D/3dmodel.model", text}};
}

const std::string move = "transform=\"0 1 0 -1 0 0 0 0 1 5 6 7\"";

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
      {"support", only(model(mesh("1", "type=\"support\""), item("1"))), "*", "type \"support\""},
      {"unknown things",
       only(model("<c:odd><c:object id=\"9\"/></c:odd><b:x id=\"y\"/><m:texture2d id=\"8\"/>" + a,
                  item("1", "m:x=\"1\""))),
       "a*", "element \"odd\""},
      {"vertex twice", only(model(mesh("1", "", "<c:triangle v1=\"0\" v2=\"0\" v3=\"1\"/>"), item("1"))), "*",
       "name a vertex twice"},
      {"extension", only(model("<b:beams/>" + a, item("1"))), "a*", "beamlattice/2017/02\" are left out"},
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

  const Reading reading =
      reader.read(pack(directory, only(model(two + assembly("3", use("1")), item("1", move) + item("3")))));
  EXPECT_EQ(reading.node(0).body.mesh, reading.node(1).children.at(0)->body.mesh);
  EXPECT_EQ(reading.node(0).transform.point({1, 2, 3}), (annVector{3, 7, 10}));
}

TEST(ThreemfReader, RefusesWhatCannotBeMeant) {
  TemporaryDirectory directory;
  const std::string a = mesh("1"), built = item("1");
  auto triangle = [](const std::string& attributes) {
    return only(model("<m:colorgroup id=\"7\"><m:color color=\"#FF0000\"/></m:colorgroup>\n" +
                          mesh("1", "", "<c:triangle " + attributes + "/>"),
                      item("1")));
  };
  auto vertex = [](const std::string& attributes) {
    return only(
        model("<c:object id=\"1\"><c:mesh><c:vertices><c:vertex " + attributes + "/></c:vertices></c:mesh></c:object>",
              item("1")));
  };
  auto declared = [&](const std::string& front) { return only(front + model(a, built)); };
  auto further = [&](const std::string& path, const std::string& target, const std::string& other) {
    return Parts{start,
                 {"3D/_rels/3dmodel.model.rels", relationships({target.c_str()})},
                 {"3D/o.model", other},
                 {"3D/3dmodel.model", model("", item("1", "p:path=\"" + path + "\""))}};
  };
  std::string deep, doubled = a;
  for (int i = 0; i < 300; ++i) deep += "<c:odd>";
  for (int i = 2; i < 40; ++i) {
    doubled += assembly(std::to_string(i), use(std::to_string(i - 1)) + use(std::to_string(i - 1)));
  }
  const Case cases[] = {
      {"no relationships", {{"3D/3dmodel.model", model(a, built)}}, "!no relationship"},
      {"no model part", {start}, "!no part \"3d/3dmodel.model\""},
      {"two of a name", {start, {"3D/3dmodel.model", ""}, {"3d/3DModel.model", ""}}, "!several parts"},
      {"outside", {{"_rels/.rels", relationships({"/3D/../../x.model"})}}, "!\"/3D/../../x.model\" lies outside"},
      {"escaped slash", {{"_rels/.rels", relationships({"/3D%2fx.model"})}}, "!lies outside"},
      {"keys", {{"_rels/.rels", relationships({"/k"}, "2019/04/keystore")}}, "!secure content"},
      {"bomb", only(std::string(std::size_t{80} << 20, ' ')), "!unpack to 83886080 bytes"},
      {"declaration", declared("<?xml version=\"1.0\"?>\n<!DOCTYPE c:model [<!ENTITY a \"b\">]>"), "!document type"},
      {"Latin 1", declared("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>"), "!UTF-8 or UTF-16"},
      {"unheard of", declared("<?xml version=\"1.0\" encoding=\"UTF-32\"?>"), "!UTF-8 or UTF-16"},
      {"not closed", only(model(a, built).substr(0, 600)), "!no well-formed XML"},
      {"deep", only(model(deep, "")), "!more than 256 deep"},
      {"long tag", only("<a b=\"" + std::string(std::size_t{3} << 20, 'x') + "\"/>"), "!longer than a megabyte"},
      {"another root", only("<model/>"), "!no 3MF model: its first element is \"model\""},
      {"lattice", only(model(a, built, "requiredextensions=\"p b\"")), "!beamlattice/2017/02\", which is not known"},
      {"no prefix", only(model(a, built, "requiredextensions=\"q\"")), "!extension \"q\" has no namespace"},
      {"unit", only(model(a, built, "unit=\"parsec\"")), "!unit \"parsec\""},
      {"nothing built", only(model(a, "")), "!shows no object"},
      {"unknown object", only(model(a, item("2"))), "!there is no object 2"},
      {"itself", only(model(assembly("1", use("1")), built)), "!line 6: object 1: there is no object 1 before"},
      {"cycle", only(model(assembly("1", use("2")) + assembly("2", use("1")), built)),
       "!object 1: there is no object 2"},
      {"twice", only(model(a + a, built)), "!several resources 1"},
      {"multiplied", only(model(doubled, item("39"))), "!more than a million"},
      {"transform", only(model(a, item("1", "transform=\"1 0 0 0 1 0 0 0 1 0 0\""))), "!twelve finite numbers"},
      {"vertex index", triangle("v1=\"0\" v2=\"1\" v3=\"4\""), "!line 7: there is no vertex 4, the mesh has 4"},
      {"negative", triangle("v1=\"0\" v2=\"1\" v3=\"-1\""), "!\"-1\" is no value for v3"},
      {"beyond 32 bits", triangle("v1=\"0\" v2=\"1\" v3=\"4294967296\""), "!no value for v3"},
      {"two corners", triangle("v1=\"0\" v2=\"1\""), "!three vertices"},
      {"property", triangle("v1=\"0\" v2=\"1\" v3=\"2\" pid=\"7\" p1=\"0\" p2=\"1\""), "!no property 1, group 7 has 1"},
      {"group", triangle("v1=\"0\" v2=\"1\" v3=\"2\" pid=\"8\" p1=\"0\""), "!no property group 8"},
      {"NaN", vertex("x=\"NaN\" y=\"0\" z=\"0\""), "!\"NaN\" is no finite number"},
      {"too large", vertex("x=\"1e999\" y=\"0\" z=\"0\""), "!no finite number"},
      {"two coordinates", vertex("x=\"1\" y=\"0\""), "!three coordinates"},
      {"path with ..", further("/3D/../3D/o.model", "/3D/o.model", ""), "!path \"/3D/../3D/o.model\""},
      {"relative path", further("o.model", "/3D/o.model", ""), "!path \"o.model\""},
      {"no relationship to it", further("/3D/o.model", "/3D/p.model", ""), "!has no relationship to it"},
      {"to itself", further("/3D/3dmodel.model", "/3D/3dmodel.model", ""), "!refers to itself"},
      {"related but missing", further("/3D/p.model", "/3D/p.model", ""), "!no part \"3d/p.model\""},
      {"no such object there", further("/3D/o.model", "o.model", model(mesh("2"), "")),
       "!no object 1 in part \"3D/o.model\""},
      {"chain", further("/3D/o.model", "o.model", model(assembly("1", use("1", "p:path=\"/3D/o.model\"")), "")),
       "!only the start part may refer"}};
  for (const Case& c : cases) check(c, directory);

  EXPECT_NE(reader.read(pack(directory, only(model(a, built)), true)).messages.errors.find("encrypted"),
            std::string::npos);
  const std::string whole = TemporaryDirectory::read(pack(directory, only(model(a, built))));
  for (std::size_t tenth = 0; tenth < 10; ++tenth) {
    const Reading cut = reader.read(directory.write("cut.3mf", whole.substr(0, whole.size() * tenth / 10)));
    EXPECT_TRUE(cut.result == velabsFAILED && !cut.fault()) << tenth;
  }
  for (std::size_t at = 0; at < whole.size(); at += 3) {
    std::string damaged = whole;
    damaged[at] = static_cast<char>(damaged[at] ^ 0x55);
    EXPECT_FALSE(reader.read(directory.write("cut.3mf", damaged)).fault()) << at;
  }
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
    const Reading reading = reader.read(file);
    ASSERT_EQ(reading.result, velabsDONE) << c.what << reading.messages.errors;
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

TEST(ThreemfReader, StopsWhenCancelled) {
  TemporaryDirectory directory;
  std::string many;
  for (int i = 0; i < 20000; ++i) many += faces;
  const std::string file = pack(directory, only(model(mesh("1", "", many), item("1"))));
  EXPECT_EQ(reader.read(file, {}, true).result, velabsCANCELLED);
  Messages messages;
  messages.cancel = true;
  EXPECT_EQ(writer.write(reader.read(file).document, directory / "b.3mf", messages), velabsCANCELLED);
}

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
  inner.add_child("b").body.mesh = shared;
  inner.add_child("b").body.mesh = shared;
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
  EXPECT_EQ(outline(reading.document.root), "t & \"<\n\xC3\xA9,5,0,0(* inner(a* b* b*)) c\xEF\xBF\xBD\xEF\xBF\xBD*");
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
  first->materials = {{"unused", {}}, {"", {0, 0, 1, 1}}};
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
  auto third = square();
  third->vertices->points.pop_back();
  document.root.add_child("c").body.mesh = third;
  document.root.children[2]->colour = annColour{0, 0, 1, 1};
  Messages messages;
  ASSERT_EQ(writer.write(document, directory / "a.3mf", messages, {{"LENGTH_UNIT", "centimetre"}, {"DIGITS", "3"}}),
            velabsDONE);
  EXPECT_NE(messages.notes.find("one look for a face"), std::string::npos);
  const std::string text = unpack(directory / "a.3mf", "3D/3dmodel.model");
  const std::string a = "<vertex x=\"0\" y=\"0\" z=\"0\"/>\n<vertex x=\"0.01\" y=\"0\" z=\"0\"/>\n",
                    bc = "<vertex x=\"0.01\" y=\"0.1\" z=\"0\"/>\n<vertex x=\"0\" y=\"0.1\" z=\"0\"/>\n",
                    d = "<vertex x=\"0.9\" y=\"0.9\" z=\"0.9\"/>\n", more = "</vertices>\n<triangles>\n",
                    end = "</triangles>\n</mesh>\n</object>\n";
  EXPECT_EQ(text.substr(text.find("<model")),
            "<model unit=\"centimeter\" xml:lang=\"en-US\" "
            "xmlns=\"http://schemas.microsoft.com/3dmanufacturing/core/2015/02\" "
            "xmlns:m=\"http://schemas.microsoft.com/3dmanufacturing/material/2015/02\">\n<resources>\n"
            "<basematerials id=\"1\">\n<base name=\"steel\" displaycolor=\"#00FF00\"/>\n</basematerials>\n"
            "<m:colorgroup id=\"2\">\n<m:color color=\"#0000FF\"/>\n<m:color color=\"#FF000080\"/>\n</m:colorgroup>\n"
            "<object id=\"3\" type=\"model\" name=\"a\" pid=\"2\" pindex=\"1\">\n<mesh>\n<vertices>\n" +
                a + bc + d + more +
                "<triangle v1=\"0\" v2=\"1\" v3=\"2\" pid=\"2\" p1=\"1\" p2=\"1\" p3=\"1\"/>\n"
                "<triangle v1=\"0\" v2=\"2\" v3=\"3\" pid=\"2\" p1=\"1\" p2=\"1\" p3=\"1\"/>\n"
                "<triangle v1=\"0\" v2=\"1\" v3=\"4\" pid=\"2\" p1=\"0\"/>\n" +
                end + "<object id=\"4\" type=\"model\" name=\"b\" pid=\"1\" pindex=\"0\">\n<mesh>\n<vertices>\n" + a +
                d + more + "<triangle v1=\"2\" v2=\"1\" v3=\"0\"/>\n" + end +
                "<object id=\"5\" type=\"model\" name=\"c\" pid=\"2\" pindex=\"0\">\n<mesh>\n<vertices>\n" + a + bc +
                more + "<triangle v1=\"0\" v2=\"1\" v3=\"2\"/>\n<triangle v1=\"0\" v2=\"2\" v3=\"3\"/>\n" + end +
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
  EXPECT_NE(messages.warnings.find("taken to be in millimetre"), std::string::npos) << messages.warnings;
  const Reading reading = reader.read(directory / "a.3mf");
  EXPECT_EQ(reading.node(0).children.at(0)->colour, red);
  EXPECT_EQ(reading.node(0).children.at(1)->colour, blue);
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
  EXPECT_FALSE(std::filesystem::exists(directory / "a.3mf"));
}

}  // namespace
