#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "ReadingCase.h"
#include "Solids.h"
#include "TemporaryDirectory.h"
#include "Translator.h"

namespace {

const Translator reader("plyreader");
const Translator writer("plywriter");

const std::string xyz = "property float x\nproperty float y\nproperty float z\n";
const std::string vertices = "element vertex 4\n" + xyz;
const std::string list = "property list uchar int vertex_indices\n";
const std::string square = "0 0 0\n1 0 0\n1 1 0\n0 1 0\n";

std::string ascii(const std::string& elements, const std::string& body) {
  return "ply\nformat ascii 1.0\n" + elements + "end_header\n" + body;
}
std::string faces(int count, const std::string& properties = list) {
  return "element face " + std::to_string(count) + "\n" + properties;
}

using Case = ReadingCase<std::string>;

void check(const Case& c, const TemporaryDirectory& directory) {
  check_reading(c, reader.read(directory.write("case.ply", c.content)), corners_of);
}

std::string with_breaks(std::string text, const char* line_break) {
  for (std::size_t at = 0; (at = text.find('\n', at)) != text.npos; at += std::strlen(line_break)) {
    text.replace(at, 1, line_break);
  }
  return text;
}

// Numbers as the binary forms hold them.
class Bytes {
 public:
  explicit Bytes(bool big) : big_(big) {}
  template <typename... T>
  Bytes& operator()(T... values) {
    (put(values), ...);
    return *this;
  }
  std::string file(const std::string& elements) const {
    return "ply\nformat binary_" + std::string(big_ ? "big" : "little") + "_endian 1.0\n" + elements + "end_header\n" +
           text_;
  }

 private:
  template <typename T>
  void put(T value) {
    std::string bytes(reinterpret_cast<const char*>(&value), sizeof value);
    if (big_) std::reverse(bytes.begin(), bytes.end());
    text_ += bytes;
  }
  bool big_;
  std::string text_;
};

using u8 = std::uint8_t;

TEST(PlyReader, ReadsAllFormsOfText) {
  TemporaryDirectory directory;
  const std::string plain = ascii(vertices + faces(2), square + "3 0 1 2\n4 0 1 2 3\n");
  const Case cases[] = {
      {"CR LF", with_breaks(plain, "\r\n"), "0 1 2|0 1 2 3"},
      {"CR", with_breaks(plain, "\r"), "0 1 2|0 1 2 3"},
      {"mark, no line end", "\xEF\xBB\xBF" + plain.substr(0, plain.size() - 1), "0 1 2|0 1 2 3"},
      {"faces first", ascii(faces(1) + vertices, "3 3 2 1\n" + square), "3 2 1"},
      {"other name, other types",
       ascii("obj_info x\n" + vertices + faces(1, "property list int16 float64 vertex_index\n"),
             square + "3 0 1 2.0\n"),
       "0 1 2"},
      {"remarks and blank lines",
       ascii("comment\n\n" + vertices + faces(1),
             "comment 1 2 3\n0 0 0\nobj_info\n\n" + square.substr(6) + "# x\n3 0 1 2 # y\n"),
       "0 1 2"},
      {"on several lines", ascii(vertices + faces(1), "0 0\n0\n" + square.substr(6) + "3\n0 1\n2\n"), "0 1 2"},
      {"too much on a line", ascii(vertices + faces(1), "0 0 0 7\n" + square.substr(6) + "3 0 1 2\n"), "0 1 2",
       "line 10: more stands on the line"},
      {"list at a vertex",
       ascii("element vertex 3\n" + xyz + list + faces(1), "0 0 0 2 8 9\n1 0 0 0\n1 1 0\n3 0 1 2\n"), "0 1 2",
       "line 13: a list is missing"},
      {"unknown",
       ascii("element edge 2\nproperty int a\n" + vertices + "property int q\nproperty int w\n" + faces(1) +
                 "property list uchar float uv\n",
             "1\n2\n0 0 0 1 2\n1 0 0 1 2\n1 1 0 1 2\n0 1 0 1 2\n3 0 1 2 2 0.5 0.5\n"),
       "0 1 2",
       "line 3: the element \"edge\" is left out\nthe properties \"q\", \"w\" of the element \"vertex\" are left "
       "out\nthe "
       "property \"uv\""},
      {"few corners", ascii(vertices + faces(3), square + "2 0 1\n0\n3 0 1 2\n"), "0 1 2",
       "faces with fewer than three corners are left out (2 times)"},
      {"strips",
       ascii(vertices + "element tristrips 1\nproperty list int int vertex_indices\n",
             square + "10 0 1 2 3 -1 0 1 1 2 3\n"),
       "0 1 2|2 1 3|1 2 3"},
      {"points", ascii(vertices, square), "", "no faces"},
      {"element of nothing", ascii("element void 99999999999999\n" + vertices + faces(1), square + "3 0 1 2\n"),
       "0 1 2", "\"void\""},
      {"behind the end", ascii(vertices + faces(1), square + "3 0 1 2\n3 0 1 3\n"), "0 1 2", "line 15: more follows"}};
  for (const Case& c : cases) check(c, directory);
}

TEST(PlyReader, RefusesWhatCannotBeMeant) {
  TemporaryDirectory directory;
  const float nan = std::nanf("");
  const Bytes corners = Bytes(false)(0.F, 0.F, 0.F, 1.F, 0.F, 0.F, 1.F, 1.F, 0.F);
  const std::string three = "element vertex 3\n" + xyz;
  auto body = [&](const std::string& properties, int count, auto... values) {
    return Bytes(corners)(values...).file(three + faces(count, properties));
  };
  const Case cases[] = {
      {"no head end", "ply\nformat ascii 1.0\n" + vertices, "!the file ends before its head does"},
      {"no format", "ply\n" + vertices + "end_header\n" + square, "!without a statement \"format\""},
      {"format", "ply\nformat text 1.0\n", "!line 2: the format \"text\" is not known"},
      {"type", ascii("element vertex 1\nproperty real x\n", "1\n"), "!line 4: the type \"real\" is not known"},
      {"count", ascii("element vertex -1\n" + xyz, "1\n"), "!line 3: an element needs"},
      {"statement", ascii("elements vertex 3\n", ""), "!line 3: \"elements\" is no statement"},
      {"property first", ascii(xyz, ""), "!line 3: a property stands before"},
      {"no coordinates", ascii("element vertex 1\nproperty float x\n", "1\n"), "!no vertex element with x, y and z"},
      {"lying", ascii("element vertex 99999999999\n" + xyz, square),
       "!line 3: 99999999999 entries of the element \"vertex\" need more"},
      {"lying a little", ascii("element vertex 5\n" + xyz, square + std::string(20, ' ')),
       "!entry 5 of 5 of the element \"vertex\": the file ends here"},
      {"word", ascii(vertices, "0 0 a\n" + square),
       "!line 8: entry 1 of 4 of the element \"vertex\": \"a\" is not the number"},
      {"not finite", ascii(vertices, "0 0 nan\n" + square),
       "!line 8: entry 1 of 4 of the element \"vertex\": a coordinate is no finite"},
      {"index", ascii(vertices + faces(1), square + "3 0 1 4\n"),
       "!line 14: entry 1 of 1 of the element \"face\": there is no vertex 4: the file has 4"},
      {"negative index", ascii(vertices + faces(1), square + "3 0 -1 2\n"), "!there is no vertex -1"},
      {"long list", ascii(vertices + faces(1), square + "4000000000 0 1 2\n"),
       "!a list of 4000000000 items does not fit"},
      {"no corners", ascii(vertices + faces(1), square + "2 0 1\n"), "!no face of the file has three corners"},
      {"binary: long list", body("property list uint int vertex_index\n", 1, 4000000000U, 0, 1, 2),
       "!a list of 4000000000 items does not fit"},
      {"binary: negative list", body("property list char int vertex_index\n", 1, std::int8_t{-3}, 0, 1, 2),
       "!a list of -3 items"},
      {"binary: half a list", body("property list float int vertex_index\n", 1, nan, 0, 1, 2),
       "!the length of a list is no whole number"},
      {"binary: index in a run", body(list, 2, u8{3}, 0, 1, 2, u8{3}, 0, 1, 3),
       "!entry 2 of 2 of the element \"face\": there is no vertex 3"},
      {"binary: not finite", Bytes(false)(0.F, 0.F, 0.F, 0.F, nan, 0.F).file("element vertex 2\n" + xyz),
       "!entry 2 of 2 of the element \"vertex\": a coordinate"},
      {"binary: index beyond", body("property list uchar float vertex_index\n", 1, u8{3}, 0.F, 1.F, 1e30F),
       "!a corner is no whole number"}};
  for (const Case& c : cases) check(c, directory);
}

TEST(PlyReader, ReadsBothOrdersOfBytes) {
  TemporaryDirectory directory;
  const std::string elements =
      "element vertex 3\nproperty uchar skipped\nproperty double x\nproperty short y\nproperty float z\n" + faces(2);
  for (bool big : {false, true}) {
    const std::string file = Bytes(big)(u8{'\n'}, 0.5, short{-2}, 1.F, u8{1}, 1.5, short{0}, 1.F, u8{1}, 1.0,
                                        short{300}, -1.F)(u8{3}, 0, 1, 2, u8{3}, 2, 1, 0)
                                 .file(elements);
    // The body begins with the byte of a line feed, in one of them behind lines that end with CR alone.
    const std::size_t body = file.find("end_header\n") + 11;
    for (const std::string& content : {file, with_breaks(file.substr(0, body), "\r") + file.substr(body)}) {
      const Reading reading = reader.must_read(directory.write("a.ply", content));
      EXPECT_EQ(reading.mesh().vertices->points, (std::vector<annVector>{{0.5, -2, 1}, {1.5, 0, 1}, {1, 300, -1}}));
      EXPECT_EQ(corners_of(reading.document), "0 1 2|2 1 0");
    }
    check({"mixed runs",
           Bytes(big)(0.F, 0.F, 0.F, 1.F, 0.F, 0.F, 1.F, 1.F, 0.F)(u8{3}, 0, 1, 2, u8{2}, 0, 1, u8{3}, 1, 2, 0, u8{4},
                                                                   0, 1, 2, 1, u8{3}, 2, 0, 1)
               .file("element vertex 3\n" + xyz + faces(5)),
           "0 1 2|1 2 0|0 1 2 1|2 0 1", "fewer than three"},
          directory);
  }
}

TEST(PlyReader, ReadsColoursOfAllRangesAndNormals) {
  TemporaryDirectory directory;
  const struct {
    std::string type, prefix, values;
  } ranges[] = {{"uchar", "", "255 51 0"},
                {"ushort", "diffuse_", "65535 13107 0"},
                {"float", "", "1 0.2 0"},
                {"int", "", "255 51 -7"}};
  for (const auto& range : ranges) {
    std::string colour;
    for (const char* name : {"red", "green", "blue"})
      colour += "property " + range.type + " " + range.prefix + name + "\n";
    const std::string v = range.values + "\n";
    const std::string file = directory.write(
        "a.ply", ascii("element vertex 3\n" + xyz + colour + faces(2, list + colour),
                       "0 0 0 " + v + "1 0 0 " + v + "1 1 0 " + v + "3 0 1 2 " + v + "3 0 1 2 0 0 0\n"));
    const Reading reading = reader.must_read(file);
    EXPECT_EQ(reading.messages.notes_and_warnings(), "");
    const annMesh& mesh = reading.mesh();
    EXPECT_EQ(mesh.vertices->colours.at(1), (annColour{1, 0.2F, 0, 1})) << range.type;
    EXPECT_EQ(mesh.materials.at(mesh.face_material(0)).colour, (annColour{1, 0.2F, 0, 1})) << range.type;
    EXPECT_EQ(mesh.materials.at(mesh.face_material(1)).colour, (annColour{0, 0, 0, 1})) << range.type;
    EXPECT_TRUE(reader.read(file, {{"READ_MATERIALS", "0"}}).mesh().materials.empty());
  }
  const std::string colour = "property float red\nproperty float green\nproperty float blue\n";
  const std::string odd =
      Bytes(false)(0.F, 0.F, 0.F, std::nanf(""), 0.2F, 1.F).file("element vertex 1\n" + xyz + colour);
  const Reading mended = reader.read(directory.write("o.ply", odd));
  EXPECT_EQ(mended.mesh().vertices->colours.at(0), (annColour{0, 0.2F, 1, 1}));
  EXPECT_NE(mended.messages.warnings.find("no number is taken as 0"), std::string::npos);
  const std::string normals = "property float nx\nproperty float ny\nproperty float nz\n";
  auto with_normal = [&](const std::string& last) {
    return reader.read(
        directory.write("n.ply", ascii("element vertex 2\n" + xyz + normals, "0 0 0 0 0 2\n0 0 1 " + last + "\n")));
  };
  EXPECT_EQ(with_normal("0 0 0").mesh().vertices->normals, (std::vector<annVector>{{0, 0, 1}, {0, 0, 0}}));
  const Reading odd_normal = with_normal("0 0 nan");
  EXPECT_TRUE(odd_normal.mesh().vertices->normals.empty());
  EXPECT_NE(odd_normal.messages.warnings.find("normals are left out"), std::string::npos);
}

// Two parts that share vertices, one of them mirrored; colours, normals and polygons.
annDocument two_parts() {
  annDocument document;
  const auto mesh = mesh_of({{0, 0, 0}, {0.5, 0, 0}, {0.5, 1, 0}, {0, 1, 0}}, {{0, 1, 2}, {0, 1, 2, 3}});
  mesh->vertices->normals.assign(4, {0, 0.6, 0.8});
  mesh->vertices->colours.assign(4, {1, 0.2F, 0, 1});
  mesh->materials = {{"", {1, 0, 0, 0.2F}}};
  mesh->set_face_material(1, 0);
  document.root.add_child("a").body.mesh = mesh;
  document.root.add_child("b").body.mesh = mesh;
  annNode& mirrored = document.root.add_child("c");
  mirrored.body.mesh = mesh;
  mirrored.transform.m[10] = -1;
  return document;
}

TEST(PlyWriter, WritesOneMeshOfAllParts) {
  TemporaryDirectory directory;
  const Messages messages = writer.must_write(two_parts(), directory / "a.ply", {{"FILE_FORMAT", "ascii"}});
  const std::string text = TemporaryDirectory::read(directory / "a.ply");
  EXPECT_EQ(text.substr(text.find("element vertex"), 16), "element vertex 8");
  EXPECT_EQ(text.substr(text.find("end_header\n")),
            "end_header\n0 0 0 0 0.6 0.8 255 51 0 255\n0.5 0 0 0 0.6 0.8 255 51 0 255\n0.5 1 0 0 0.6 0.8 255 51 0 255\n"
            "0 1 0 0 0.6 0.8 255 51 0 255\n0 0 0 0 0.6 -0.8 255 51 0 255\n0.5 0 0 0 0.6 -0.8 255 51 0 255\n"
            "0.5 1 0 0 0.6 -0.8 255 51 0 255\n0 1 0 0 0.6 -0.8 255 51 0 255\n"
            "3 0 1 2 204 204 204 255\n4 0 1 2 3 255 0 0 51\n3 0 1 2 204 204 204 255\n4 0 1 2 3 255 0 0 51\n"
            "3 4 6 5 204 204 204 255\n4 4 7 6 5 255 0 0 51\n");
  EXPECT_NE(messages.notes.find("light grey"), std::string::npos);
  EXPECT_NE(messages.notes.find("3 parts are written as one"), std::string::npos);
}

TEST(PlyWriter, WritesWhatItReadByteForByte) {
  TemporaryDirectory directory;
  auto changed = [](auto change) {
    annDocument document = two_parts();
    auto mesh = std::make_shared<annMesh>(*document.root.children[0]->body.mesh);
    mesh->vertices = std::make_shared<annVertices>(*mesh->vertices);
    change(*mesh);
    for (const auto& child : document.root.children) child->body.mesh = mesh;
    return document;
  };
  annDocument documents[] = {two_parts(),
                             changed([](annMesh& m) { m.vertices->points[0].x = 0.1; }),
                             changed([](annMesh& m) { m.vertices->colours[0].red = 0.3F; }),
                             changed([](annMesh& m) { m.vertices->colours = {}; }),
                             changed([](annMesh& m) { m.vertices->normals = {}; }),
                             changed([](annMesh& m) { m.face_materials = {}; }),
                             changed([](annMesh& m) { m.add_face(std::vector<std::uint32_t>(70000, 1)); })};
  for (const char* form : {"binary", "ascii"}) {
    for (const annDocument& document : documents) {
      writer.must_write(document, directory / "a.ply", {{"FILE_FORMAT", form}});
      const Reading reading = reader.must_read(directory / "a.ply");
      EXPECT_EQ(reading.messages.notes_and_warnings(), "");
      EXPECT_EQ(reading.statistics().faces, ann_statistics(document).faces);
      writer.must_write(reading.document, directory / "b.ply", {{"FILE_FORMAT", form}});
      EXPECT_TRUE(TemporaryDirectory::read(directory / "a.ply") == TemporaryDirectory::read(directory / "b.ply"));
    }
  }
  const Options bare{{"WRITE_NORMALS", "0"},   {"WRITE_VERTEX_COLOURS", "0"}, {"WRITE_MATERIALS", "0"},
                     {"FILE_FORMAT", "ascii"}, {"SCALE", "3.33333"},          {"DIGITS", "3"}};
  writer.must_write(two_parts(), directory / "a.ply", bare);
  const std::string text = TemporaryDirectory::read(directory / "a.ply");
  EXPECT_EQ(text.substr(text.find("end_header"), 26), "end_header\n0 0 0\n1.67 0 0\n");
}

}  // namespace
