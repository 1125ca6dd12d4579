#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "ReadingCase.h"
#include "Solids.h"
#include "TemporaryDirectory.h"
#include "Translator.h"

namespace {

const Translator reader("stlreader");
const Translator writer("stlwriter");

std::string facet(const std::string& points = "vertex 0 0 0 vertex 1 0 0 vertex 0 1 0") {
  return "facet normal 0 0 1 outer loop " + points + " endloop endfacet\n";
}

struct Record {
  std::array<float, 12> numbers{0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 0};
  std::uint16_t attribute = 0;
};

std::string binary(std::string remarks, std::uint32_t count, const std::vector<Record>& records) {
  remarks.resize(80);
  remarks.append(reinterpret_cast<const char*>(&count), 4);
  for (const Record& record : records) {
    remarks.append(reinterpret_cast<const char*>(record.numbers.data()), 48);
    remarks.append(reinterpret_cast<const char*>(&record.attribute), 2);
  }
  return remarks;
}

using Case = ReadingCase<std::string>;

// The name and the triangles of every node: "a:1|b:0".
std::string outline(const annDocument& document) {
  std::string result;
  for (const auto& node : document.root.children) {
    const std::size_t triangles = node->body.mesh ? node->body.mesh->triangle_count() : 0;
    result += (result.empty() ? "" : "|") + node->name.str() + ":" + std::to_string(triangles);
  }
  return result;
}

void check(const Case& c, const TemporaryDirectory& directory) {
  check_reading(c, reader.read(directory.write("case.stl", c.content)), outline);
}

TEST(StlReader, ReadsTextInAllItsSpellings) {
  TemporaryDirectory directory;
  const std::string lines =
      "solid a b\nfacet normal 0 0 1\n outer loop\n  vertex 0 0 0\n  vertex 1 0 0\n  vertex 0 1 0\n"
      " endloop\nendfacet\nendsolid a b\n";
  auto with_ends = [&](const char* end) {
    std::string text;
    for (char c : lines) c == '\n' ? text += end : text += c;
    return text;
  };
  std::string upper = lines;
  for (char& c : upper) c = static_cast<char>(std::toupper(c));
  const Case cases[] = {
      {"CR LF", with_ends("\r\n"), "a b:1"},
      {"CR", with_ends("\r"), "a b:1"},
      {"upper case", upper, "A B:1"},
      {"leading blanks and mark", "\xEF\xBB\xBF \t\n " + lines, "a b:1"},
      {"comments", "# x\nsolid a # x\n#x\n" + facet() + "# x\nendsolid # x", "a:1"},
      {"number sign in a name", "solid Part #3\n" + facet() + "endsolid", "Part #3:1"},
      {"name with any bytes", "solid \xE6\x9C\x88 \xFF\n" + facet() + "endsolid", "\xE6\x9C\x88 \xC3\xBF:1"},
      {"no name", "solid\n" + facet() + "endsolid", ":1"},
      {"no normal", "solid a\nfacet outer loop vertex 0 0 0 vertex 1 0 0 vertex 0 1 0 endloop endfacet endsolid",
       "a:1"},
      {"normal that is none",
       "solid a\nfacet normal nan -nan(ind) 1.#IND\nouter loop vertex 0 0 0 vertex 1 0 0 vertex 0 0 0 endloop "
       "endfacet endsolid",
       "a:1"},
      {"several solids", "solid a\n" + facet() + facet() + "endsolid\nsolid b\n" + facet() + "endsolid b\n", "a:2|b:1"},
      {"empty among full", "solid a\n" + facet() + "endsolid a\nsolid b\nendsolid b\nsolid\nendsolid", "a:1|b:0"},
      {"only empty ones", "solid a\nendsolid a\n", "a:0"},
      {"numbers of all kinds", "solid a\n" + facet("vertex +1. .5 -1E+2 vertex 1d0 0 0 vertex 0 0 1e-400") + "endsolid",
       "a:1"}};
  for (const Case& c : cases) check(c, directory);
}

TEST(StlReader, RefusesBrokenTextWithTheLine) {
  TemporaryDirectory directory;
  const Case cases[] = {
      {"no end", "solid a\n" + facet(), "!line 3: the file ends before the \"endsolid\""},
      {"cut in a facet", "solid a\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\n", "!line 5: the file ends"},
      {"not a number", "solid a\n" + facet("vertex 0 0 0\nvertex 1 x 0 vertex 0 1 0") + "endsolid", "!line 3: "},
      {"glued numbers", "solid a\n" + facet("vertex 1.0-2.0 0 0") + "endsolid", "!line 2: there is \"1.0-2.0\""},
      {"NaN", "solid a\n" + facet("vertex nan 0 0") + "endsolid", "!no finite number"},
      {"too large", "solid a\n" + facet("vertex 1e999 0 0") + "endsolid", "!line 2"},
      {"four corners", "solid a\n" + facet("vertex 0 0 0 vertex 1 0 0 vertex 1 1 0 vertex 0 1 0") + "endsolid",
       "!where \"endloop\" is expected"},
      {"text behind", "solid a\n" + facet() + "endsolid\njunk", "!line 4: there is \"junk\""},
      {"UTF-16", std::string("\xFF\xFEs\0o\0", 6), "!UTF-16"},
      {"empty file", "", "!empty"},
      {"short", "sol", "!3 bytes"}};
  for (const Case& c : cases) check(c, directory);
}

TEST(StlReader, TellsBinaryFromTextAndCountsFromBytes) {
  TemporaryDirectory directory;
  const std::vector<Record> two(2);
  Record infinite;
  infinite.numbers[5] = std::numeric_limits<float>::infinity();
  const Case cases[] = {{"named", binary("solid REAR CASE", 2, two), "REAR CASE:2"},
                        {"named, stray byte", binary("solid test", 2, two) + '\n', "test:2", "1 byte behind"},
                        {"not UTF-8", binary("solid \xFF", 2, two), "\xC3\xBF:2"},
                        {"more bytes than counted", binary("", 1, two), ":1", "byte 134: 50 bytes behind"},
                        {"fewer bytes than counted", binary("", 3, two), "!3 triangles, the file holds 2"},
                        {"absurd count", binary("solid", 0xFFFFFFFF, two), "!4294967295 triangles"},
                        {"count not filled in", binary("", 0, two), ":2", "says 0 triangles"},
                        {"no count, odd bytes", binary("", 0, two) + "x", "!101 bytes"},
                        {"remarks like a mark of UTF-16", binary("\xFF\xFE", 1, {{}}), ":1"},
                        {"no triangles", binary("", 0, {}), ":0"},
                        {"infinite", binary("", 3, {{}, {}, infinite}), "!triangle 3 at byte 184"}};
  for (const Case& c : cases) check(c, directory);
}

TEST(StlReader, WeldsAndScalesAsAsked) {
  TemporaryDirectory directory;
  Record other;
  other.numbers = {0, 0, 1, 1, 0, -0.0F, 1, 1, 0, 0, 1, 0};
  const std::string file = directory.write("a.stl", binary("", 2, {{}, other}));
  EXPECT_EQ(reader.read(file).mesh().vertices->count(), 4u);
  const Reading reading = reader.read(file, {{"WELD_POINTS", "0"}, {"SCALE", "25.4"}, {"LENGTH_UNIT", "inch"}});
  EXPECT_EQ(reading.mesh().vertices->count(), 6u);
  EXPECT_EQ(reading.statistics().box->max, (annVector{25.4, 25.4, 0}));
  EXPECT_EQ(reading.document.unit, velLENGTH_INCH);
  EXPECT_EQ(reader.read(file, {{"SCALE", "-1"}}).result, velabsFAILED);
}

TEST(StlReader, TakesColoursOfBothConventions) {
  TemporaryDirectory directory;
  auto records = [](std::vector<std::uint16_t> attributes) {
    std::vector<Record> result;
    for (std::uint16_t attribute : attributes) result.push_back({.attribute = attribute});
    return result;
  };
  const std::string whole = std::string("COLOR=") + '\x33' + '\0' + '\xFF' + '\xFF' + ",MATERIAL";
  const struct {
    const char* what;
    std::string content;
    std::vector<annColour> colours;  // of the faces; red -1 for none
  } cases[] = {{"bit 15 set", binary("", 3, records({0xFC00, 0, 0x801F})), {{1, 0, 0, 1}, {-1}, {0, 0, 1, 1}}},
               {"nothing", binary("", 2, records({0, 0})), {{-1}, {-1}}},
               {"other use", binary("", 2, records({7, 0})), {{-1}, {-1}}},
               {"colour of the whole", binary(whole, 2, records({0x001F, 0xFFFF})), {{1, 0, 0, 1}, {-1}}},
               {"whole only", binary(whole, 2, records({0, 0})), {{-1}, {-1}}}};
  for (const auto& c : cases) {
    const Reading reading = reader.read(directory.write("a.stl", c.content));
    const annMesh& mesh = reading.mesh();
    for (std::size_t face = 0; face < c.colours.size(); ++face) {
      const std::uint32_t material = mesh.face_material(face);
      EXPECT_EQ(material == annMesh::no_material, c.colours[face].red < 0) << c.what << face;
      if (material == annMesh::no_material) continue;
      EXPECT_EQ(mesh.materials[material].colour, c.colours[face]) << c.what;
    }
    EXPECT_EQ(reading.node(0).colour.has_value(), std::string(c.what).find("whole") != std::string::npos);
    EXPECT_EQ(reading.messages.notes.empty(), std::string(c.what) != "other use");
  }
}

// A quad and a triangle in red glass, once as it stands and once mirrored and moved.
annDocument two_parts() {
  const auto mesh = mesh_of({{0, 0, 0}, {2, 0, 0}, {2, 1, 0}, {0, 1, 0}, {0, 0, 0.1}}, {{0, 1, 2, 3}, {0, 1, 4}});
  mesh->materials.push_back({"red", {1, 0, 0, 0.5F}});
  mesh->set_face_material(1, 0);
  annDocument document = document_of(mesh, "one\nline");
  annNode& mirrored = document.root.add_child("");
  mirrored.transform.m = {-1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 10};
  mirrored.body.mesh = mesh;
  return document;
}

TEST(StlWriter, WritesWhatItReads) {
  TemporaryDirectory directory;
  const annDocument document = two_parts();
  for (const char* form : {"binary", "ascii"}) {
    const Messages messages = writer.must_write(document, directory / "a.stl",
                                                {{"FILE_FORMAT", form}, {"LENGTH_UNIT", "inch"}, {"SCALE", "25.4"}});
    EXPECT_NE(messages.notes.find("lengths are written in inch"), std::string::npos);
    const bool binary = std::string(form) == "binary";
    EXPECT_NE(messages.notes.find(binary ? "no opacity" : "no colours"), std::string::npos);
    const Reading reading = reader.must_read(directory / "a.stl");
    EXPECT_EQ(reading.document.root.children.size(), binary ? 1u : 2u);
    EXPECT_EQ(reading.node(0).name, binary ? "" : "one line");
    EXPECT_EQ(reading.statistics().triangles, 6u);
    EXPECT_NEAR(reading.statistics().box->min.x, -2, 1e-14);
    EXPECT_NEAR(reading.statistics().box->max.z, 10.1, binary ? 1e-6 : 1e-14);
    EXPECT_EQ(reading.mesh().materials.size(), binary ? 1u : 0u);
    // The mirrored quad still faces up.
    const annMesh& mesh = reading.mesh(binary ? 0 : 1);
    const auto& points = mesh.vertices->points;
    const auto face = mesh.face(binary ? 3 : 0);
    EXPECT_GT(ann_cross(points[face[1]] - points[face[0]], points[face[2]] - points[face[0]]).z, 0);
  }
  const Messages messages = writer.must_write(document, directory / "a.stl", {{"WRITE_MATERIALS", "0"}});
  EXPECT_EQ(messages.notes.find("colours"), std::string::npos) << messages.notes;
}

TEST(StlWriter, WarnsOfRoundingThatShapesShow) {
  TemporaryDirectory directory;
  const struct {
    const char* what;
    double offset, scale;
    const char *form, *warning;
  } cases[] = {{"near", 300.123, 1, "binary", ""},
               {"far", 4500000.123456, 1, "binary", "move its points by up to 0.12"},
               {"far, in numbers that floats hold", 4500000, 10, "binary", ""},
               {"far for its size", 300.123, 1e-3, "binary", "move its points by up to"},
               {"far and large", 4500000.123456, 1e5, "binary", ""},
               {"text", 4500000.123456, 1, "ascii", ""}};
  for (const auto& c : cases) {
    std::vector<annVector> points;
    for (int i = 0; i < 3000; ++i) {
      points.push_back({c.scale * (i % 2), c.scale * (i % 3), c.scale * (i == 2999 ? 1 : 0)});
    }
    annDocument document = document_of(mesh_of(points, {{0, 1, 2}}));
    document.root.children[0]->transform.m[3] = c.offset;
    const Messages messages = writer.must_write(document, directory / "a.stl", {{"FILE_FORMAT", c.form}});
    EXPECT_EQ(messages.warnings.empty(), std::string(c.warning).empty()) << c.what << ": " << messages.warnings;
    EXPECT_NE(messages.warnings.find(c.warning), std::string::npos) << c.what << ": " << messages.warnings;
  }
}

TEST(StlWriter, SpellsTextExactly) {
  TemporaryDirectory directory;
  annDocument document = document_of(mesh_of({{0, 0, 0}, {0.1, 0, 0}, {0, 1e22, 0}}, {{0, 1, 2}}), "a");
  Messages messages = writer.must_write(document, directory / "a.stl", {{"FILE_FORMAT", "ascii"}});
  EXPECT_EQ(TemporaryDirectory::read(directory / "a.stl"),
            "solid a\nfacet normal 0 0 1\n outer loop\n  vertex 0 0 0\n  vertex 0.1 0 0\n  vertex 0 1e+22 0\n endloop\n"
            "endfacet\nendsolid a\n");
  EXPECT_EQ(messages.notes_and_warnings(), "");

  writer.must_write(document, directory / "a.stl", {{"SOLID_NAME", "Solid COLOR=b"}});
  EXPECT_EQ(TemporaryDirectory::read(directory / "a.stl").substr(0, 18), std::string("STL Solid COLOR b\0", 18));

  document.root.children[0]->name = "# a # # b#";
  messages = writer.must_write(document, directory / "n.stl", {{"FILE_FORMAT", "ascii"}});
  EXPECT_EQ(reader.read(directory / "n.stl").node(0).name, "_ a _ _ b#");
  EXPECT_NE(messages.notes.find("\"# a # # b#\" becomes"), std::string::npos) << messages.notes;

  const std::string long_name = std::string(79, 'a') + "\xC3\xA9";
  messages = writer.must_write(document, directory / "a.stl", {{"SOLID_NAME", long_name.c_str()}});
  EXPECT_EQ(TemporaryDirectory::read(directory / "a.stl").substr(0, 80), std::string(79, 'a') + '\0');
  EXPECT_NE(messages.notes.find("room for 80 bytes"), std::string::npos) << messages.notes;
}

TEST(StlWriter, SaysWhyItCannotWrite) {
  TemporaryDirectory directory;
  annDocument document = two_parts();
  document.root.transform = annTransform::scaling(1e39);
  writer.must_not_write(document, directory / "a.stl", "too large");
  writer.must_not_write(document, directory / "a.stl", "DIGITS", {{"FILE_FORMAT", "ascii"}, {"DIGITS", "18"}});

  document.unit = velLENGTH_UNSPECIFIED;
  document.root.transform = {};
  document.root.add_child("point").body.mesh = mesh_of({{0, 0, 0}}, {});
  const Messages messages = writer.must_write(document, directory / "a.stl", {{"LENGTH_UNIT", "metre"}});
  EXPECT_NE(messages.notes.find("no length unit"), std::string::npos);
  EXPECT_NE(messages.notes.find("faces only: 1 part of vertices is left out"), std::string::npos) << messages.notes;
}

}  // namespace
