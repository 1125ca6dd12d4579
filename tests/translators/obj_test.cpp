#include <gtest/gtest.h>

#include <filesystem>

#include "CpuTime.h"
#include "Formats.h"
#include "ReadingCase.h"
#include "Solids.h"
#include "TemporaryDirectory.h"
#include "Translator.h"

namespace {

const Translator reader("objreader");
const Translator writer("objwriter");

const std::string square = "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\n";

// Path, faces and corners of every node that has a mesh, as "a/b:2:7 c:1:3".
std::string outline(const annNode& node, const std::string& path = "") {
  std::string result;
  for (const auto& child : node.children) {
    const std::string name = path + child->name.str();
    if (const annMesh* mesh = child->body.mesh.get()) {
      result += (result.empty() ? "" : " ") + name + ":" + std::to_string(mesh->face_count()) + ":" +
                std::to_string(mesh->corners.size());
    }
    const std::string below = outline(*child, name + "/");
    result += (result.empty() || below.empty() ? "" : " ") + below;
  }
  return result;
}

using Case = ReadingCase<std::string>;

void check(const Case& c, const TemporaryDirectory& directory) {
  check_reading(c, reader.read(directory.write("case.obj", c.content)),
                [](const annDocument& document) { return outline(document.root); });
}

TEST(ObjReader, ReadsFacesInAllTheirSpellings) {
  TemporaryDirectory directory;
  std::string long_face = square + "f";
  for (int i = 0; i < 100000; ++i) long_face += " " + std::to_string(i % 4 + 1);
  const Case cases[] = {
      {"no line end", square + "f 1 2 3 4", ":1:4"},
      {"CR LF, tabs, blanks", "v\t0 0 0 \r\nv 1  0 0\r\nv 1 1 0\r\n f\t1 2 3\t\r\n", ":1:3"},
      {"CR and mark", "\xEF\xBB\xBFv 0 0 0\rv 1 0 0\rv 1 1 0\rf 1 2 3", ":1:3"},
      {"relative", square + "f -4 -3 -2\nv 2 2 2\nf -1 -2 -3", ":2:6"},
      {"comments", "# x \\\n" + square + "f 1 2 3 # 4\n#\n", ":1:3"},
      {"continued", square + "f 1 2 \\\n3 \\\r\n4\nf 1 2 3", ":2:7"},
      {"faces first", "f 1 2 3\n" + square, ":1:3"},
      {"all forms", square + "vt 0 0\nvn 0 0 1\nf 1/1 2/1 3/1\nf 1//1 2//1 3//1\nf 1/1/1 2/1/1 3/1/1\nf 1/ 2// 3/1/",
       ":4:12", "texture coordinates"},
      {"very long line", long_face, ":1:100000"},
      {"weights", "v 0 0 0 1\nv 1 0 0 1\nv 1 1 0 2\nf 1 2 3", ":1:3", "line 3: weights"},
      {"odd numbers", "v 3.1+e2 +1. .5\nv 0 0 0\nv 1 1 1\nf 1 2 3", ":1:3",
       "line 1: odd notation of numbers, the first \"3.1+e2\" taken as 3.1"},
      {"too few corners", square + "f\nf 1\nf 1 2\nf 1 2 3", ":1:3",
       "line 5: faces with fewer than three corners are left out (3 times)"},
      {"lines only", square + "g a\nl 1 2\nl 2 3\ng b\np 1", "a:0:0", "line 6: line elements are left out (2 times)"},
      {"normals that are not there", square + "f 1//0 2//-1 3/7/9", ":1:3", "line 5: a corner names a normal"},
      {"unknown statements", square + "f 1 2 3\ncurv 0 1\ncurv 0 2\ns off", ":1:3",
       "line 6: statement \"curv\" is not known"}};
  for (const Case& c : cases) check(c, directory);
}

TEST(ObjReader, RefusesWhatCannotBeMeant) {
  TemporaryDirectory directory;
  const Case cases[] = {{"index 0", square + "f 1 2 0", "!line 5: there is no vertex \"0\", 4 came before"},
                        {"too large", square + "f 1 2 5\n", "!line 5: there is no vertex 5, the file has 4"},
                        {"before the first", square + "f -5 1 2", "!line 5: there is no vertex \"-5\""},
                        {"odd corner", square + "f 1/a 2 3", "!line 5: the corner \"1/a\""},
                        {"half an index", square + "f 1 2 3.5", "!line 5: the corner \"3.5\""},
                        {"NaN", square + "v 0 nan 0\n", "!line 5: a coordinate is no finite number"},
                        {"NaN of some programs", square + "v 0 1.#QNAN 0\n", "!line 5: the coordinate \"1.#QNAN\""},
                        {"too large a number", square + "v 0 1e999 0\n", "!line 5"},
                        {"two coordinates", square + "v 0 1\n", "!line 5: a vertex needs three"},
                        {"no usable face", square + "f 1\nf 2 3\n", "!no face of the file has three corners"},
                        {"nothing known", "hello\nworld\n", "!holds no geometry"},
                        {"decimal comma", "v 0,5 0 0\n", "!line 1"},
                        {"empty", "", "!empty"},
                        {"UTF-16", std::string("\xFE\xFF\0v", 4), "!UTF-16"},
                        {"bytes", std::string(1000, '\0'), "!holds no geometry"}};
  for (const Case& c : cases) check(c, directory);
}

TEST(ObjReader, MakesNodesOfObjectsAndGroups) {
  TemporaryDirectory directory;
  const std::string f = "f 1 2 3\n", q = "f 1 2 3 4\n";
  const Case cases[] = {
      {"groups", square + "g a b\n" + f + "g c\n" + q, "a b:1:3 c:1:4"},
      {"Latin 1", square + "g M\xFC\n" + f, "M\xC3\xBC:1:3"},
      {"before any group", square + f + "g a\n" + f, ":1:3 a:1:3"},
      {"opened again", square + "g a\n" + f + "g b\n" + f + "g a\n" + q, "a:2:7 b:1:3"},
      {"empty ones", square + "o x\ng y\ng z\n" + f + "o w\n", "x/z:1:3"},
      {"same group in two objects", square + "o x\ng a\n" + f + "o y\n" + f + "g a\n" + q, "x/a:1:3 y:1:3 y/a:1:4"}};
  for (const Case& c : cases) check(c, directory);
  const Reading reading = reader.read(directory.write("a.obj", square + "g a\n" + f + "g b\n" + q + "v 9 9 9\n"));
  EXPECT_EQ(reading.mesh(0).vertices, reading.mesh(1).vertices);
  EXPECT_EQ(reading.statistics().vertices, 5u);
}

TEST(ObjReader, FindsMaterialsBesideTheFileOnly) {
  TemporaryDirectory directory;
  directory.write("secret.mtl", "newmtl red\nKd 0 0 0\n");
  directory.write("sub/a b.mtl", "newmtl red\nKd 1 0 0\nnewmtl red\nKd 0 0 0\n");
  directory.write("sub/c.mtl", "newmtl half\nKd 0.5\nd 0.75\nTr 0.1\nmap_Kd x.png\nnewmtl tr\nTr 0.25\nKd 0 0 nan\n");
  std::filesystem::create_symlink("../secret.mtl", directory.path() / "sub/link.mtl");
  const annColour red{1, 0, 0, 1}, grey{0.8F, 0.8F, 0.8F, 1};
  const struct {
    const char* statements;
    annColour colour;
    const char* message;
  } cases[] = {{"mtllib a b.mtl\nusemtl red", red, ""},
               {"mtllib none.mtl c.mtl\nusemtl half", {0.5F, 0.5F, 0.5F, 0.75F}, "\"none.mtl\" is not there"},
               {"mtllib C:\\x\\c.mtl\nusemtl tr", {0, 0, 0, 0.75F}, "only colour and opacity"},
               {"newmtl red\nmtllib a.obj\nusemtl red", grey, "\"a.obj\" is not there"},
               {"mtllib ../secret.mtl\nusemtl red", grey, "\"../secret.mtl\" is not there"},
               {"mtllib link.mtl\nusemtl red", grey, "\"link.mtl\" is not there"},
               {"mtllib a b.mtl\nusemtl blue", grey, "defined nowhere becomes grey, the first is \"blue\""}};
  for (const auto& c : cases) {
    const std::string file = directory.write("sub/a.obj", square + "f 1 2 3\n" + c.statements + "\nf 1 2 3 4");
    const Reading reading = reader.must_read(file);
    const std::string said = reading.messages.warnings + reading.messages.notes;
    EXPECT_NE(said.find(c.message), said.npos) << c.statements << ": " << said;
    EXPECT_EQ(said.empty(), !*c.message) << said;
    const annMesh& mesh = reading.mesh();
    EXPECT_EQ(mesh.face_material(0), annMesh::no_material);
    EXPECT_EQ(mesh.materials.at(mesh.face_material(1)).colour, c.colour) << c.statements;
    EXPECT_TRUE(reader.read(file, {{"READ_MATERIALS", "0"}}).mesh().materials.empty());
  }
}

TEST(ObjReader, KeepsNormalsOfVerticesElseOfCorners) {
  TemporaryDirectory directory;
  constexpr std::uint32_t no = annMesh::no_normal;
  const struct {
    const char* what;
    const char* faces;
    std::vector<std::uint32_t> corner_normals;  // empty for those of vertices
    const char* warning = "";
  } cases[] = {{"one each", "f 1//1 2//2 3//1\nf 1//1 3//3 4//1", {}},
               {"two for a vertex", "f 1//1 2//1 3//1\nf 1//2 3//1 4//3", {0, 0, 0, 1, 0, 2}},
               {"some without", "f 1//1 2//1 3//1\nf 1 3 4", {0, 0, 0, no, no, no}},
               {"without before", "f 1 3 4\nf 1//1 2//1 3//1", {no, no, no, 0, 0, 0}},
               {"without between", "f 1//1 3//1 4//1\nf 1 2 3\nf 2//1 3 4//3", {0, 0, 0, no, no, no, 0, no, 2}},
               {"without direction", "f 1//4 2//5 3//3", {no, 3, 2}},
               {"not there", "f 1//1 2//1 3//6", {0, 0, no}, "names a normal that is not there"}};
  for (const auto& c : cases) {
    const Reading reading = reader.must_read(
        directory.write("a.obj", square + "vn 0 0 2\nvn 1 0 0\nvn 0 0 1\nvn 0 0 0\nvn 0 3 0\n" + c.faces));
    const annMesh& mesh = reading.mesh();
    EXPECT_EQ(mesh.corner_normals, c.corner_normals) << c.what;
    EXPECT_EQ(mesh.vertices->normals.empty(), !c.corner_normals.empty()) << c.what;
    const std::vector<annVector> pool{{0, 0, 1}, {1, 0, 0}, {0, 0, 1}, {0, 1, 0}};
    EXPECT_EQ(mesh.vertices->normal_pool, c.corner_normals.empty() ? std::vector<annVector>() : pool) << c.what;
    EXPECT_EQ(reading.messages.notes, "") << c.what;
    EXPECT_NE(reading.messages.warnings.find(c.warning), std::string::npos) << c.what << reading.messages.warnings;
    if (!c.corner_normals.empty()) continue;
    EXPECT_EQ(mesh.vertices->normals[0], (annVector{0, 0, 1}));
  }
  const Reading none = reader.read(directory.write("a.obj", square + "vn 0 0 0\nf 1//1 2//1 3//1\nf 1 3 4"));
  EXPECT_FALSE(none.mesh().has_normals());
}

TEST(ObjReader, ReadsVertexColoursOfBothRanges) {
  TemporaryDirectory directory;
  for (const std::string colour : {"1 0.2 0", "255 51 0"}) {
    const std::string lines = "v 0 0 0 " + colour + "\nv 1 0 0\nv 1 1 0 " + colour + "\nf 1 2 3";
    const annColour orange{1, 0.2F, 0, 1}, white{1, 1, 1, 1};
    EXPECT_EQ(reader.must_read(directory.write("a.obj", lines)).mesh().vertices->colours,
              (std::vector<annColour>{orange, white, orange}));
  }
}

TEST(ObjWriter, WritesSharedVerticesOnceAndMirrorsFaces) {
  TemporaryDirectory directory;
  const auto quad = mesh_of({{0, 0, 0}, {0.1, 0, 0}, {0.1, 1, 0}, {0, 1, 0}}, {{0, 1, 2, 3}});
  quad->vertices->normals.assign(4, {0, 0, 1});
  quad->vertices->colours.assign(4, {1, 0.5F, 0, 1});
  const auto triangle = mesh_of({}, {{0, 1, 2}});
  triangle->vertices = quad->vertices;
  annDocument document = document_of(quad, "a b");
  document.root.add_child("").body.mesh = triangle;
  annNode& mirrored = document.root.add_child("a b");
  mirrored.body.mesh = quad;
  mirrored.transform.m[10] = -1;

  Messages messages = writer.must_write(document, directory / "a.obj");
  const std::string vertices = "v 0 0 0 1 0.5 0\nv 0.1 0 0 1 0.5 0\nv 0.1 1 0 1 0.5 0\nv 0 1 0 1 0.5 0\n";
  auto normals = [](const char* n) { return std::string(n) + n + n + n; };
  EXPECT_EQ(TemporaryDirectory::read(directory / "a.obj"),
            "o a b\n" + vertices + normals("vn 0 0 1\n") +
                "f 1//1 2//2 3//3 4//4\no body_2\nf 1//1 2//2 3//3\no a b_2\n" + vertices + normals("vn 0 0 -1\n") +
                "f 5//5 8//8 7//7 6//6\n");
  EXPECT_EQ(messages.notes, "OBJ names each part by one line that no other has: \"a b\" becomes \"a b_2\"\n");
  EXPECT_EQ(messages.warnings + messages.errors, "");
  EXPECT_FALSE(std::filesystem::exists(directory / "a.mtl"));

  annDocument nested;
  annNode& outer = nested.root.add_child("outer");
  outer.add_child("inner").body.mesh = quad;
  messages = writer.must_write(nested, directory / "n.obj");
  EXPECT_NE(messages.notes.find("no assemblies"), std::string::npos) << messages.notes;

  const Options bare{{"WRITE_NORMALS", "0"}, {"WRITE_VERTEX_COLOURS", "0"}, {"DIGITS", "3"}, {"SCALE", "3.33333"}};
  writer.must_write(document, directory / "a.obj", bare);
  EXPECT_EQ(TemporaryDirectory::read(directory / "a.obj").substr(0, 41),
            "o a b\nv 0 0 0\nv 0.333 0 0\nv 0.333 3.33 0\n");
}

// Groups of an OBJ file all share one list of vertices; here it lies far out, where rounding is looked at too.
annDocument parts_of_one_list(std::size_t count) {
  annDocument document;
  document.unit = velLENGTH_MILLIMETRE;
  const auto vertices = std::make_shared<annVertices>();
  for (std::uint32_t i = 0; i < count; ++i) {
    for (std::uint32_t k = 0; k < 3; ++k) {
      vertices->points.push_back({1e9 + i, static_cast<double>(k), static_cast<double>(k % 2)});
      vertices->colours.push_back({0, 0.2F * static_cast<float>(i % 2), 1, 1});
    }
    const auto mesh = mesh_of({}, {{3 * i, 3 * i + 1, 3 * i + 2}});
    mesh->vertices = vertices;
    document.root.add_child("part " + std::to_string(i)).body.mesh = mesh;
  }
  return document;
}

TEST(Writers, LookOnceAtVerticesThatManyPartsShare) {
  TemporaryDirectory directory;
  const annDocument some = parts_of_one_list(2000), many = parts_of_one_list(16000);
  for (const char* format : {"obj", "stl", "3mf", "glb"}) {
    const std::string name = std::string(format) + "writer";
    if (!is_installed(name.c_str())) continue;
    auto seconds = [&](const annDocument& document) {
      return cpu_seconds([&] { translator(name).must_write(document, directory / "a"); });
    };
    // 8 times the parts; work that grows with the square takes 64 times as long.
    const double few = seconds(some);
    EXPECT_LT(seconds(many), 24 * few + 0.1) << format;
  }
}

TEST(ObjWriter, KeepsMaterialsThroughACompanionFile) {
  TemporaryDirectory directory;
  directory.write("in.mtl", "newmtl deep red\nKd 0.7 0 0\nd 0.25\nnewmtl deep_red\nKd 0 0.1 0\n");
  const std::string file = directory.write(
      "in.obj", square + "mtllib in.mtl\ng a\nf 1 2 3\nusemtl deep red\nf 1 2 4\ng b\nusemtl deep_red\nf 2 3 4 1\n");
  Reading first = reader.must_read(file);
  first.document.root.add_child("plain").body.mesh = std::make_shared<annMesh>(first.mesh(0));
  const Messages messages = writer.must_write(first.document, directory / "my out.v2.obj");
  EXPECT_EQ(TemporaryDirectory::read(directory / "my out.v2.mtl"),
            "newmtl deep_red\nKd 0.7 0 0\nd 0.25\nnewmtl deep_red_2\nKd 0 0.1 0\nnewmtl plain\nKd 0.8 0.8 0.8\n");
  EXPECT_NE(messages.notes.find("\"deep red\" becomes \"deep_red\", and 1 more likewise"), std::string::npos);
  const Reading second = reader.must_read(directory / "my out.v2.obj");
  EXPECT_EQ(second.messages.warnings, "");
  EXPECT_EQ(outline(second.document.root), "a:2:6 b:1:4 plain:2:6");
  EXPECT_EQ(second.mesh(0).face_material(0), annMesh::no_material);
  EXPECT_EQ(second.mesh(0).materials.at(second.mesh(0).face_material(1)).colour, (annColour{0.7F, 0, 0, 0.25F}));
  EXPECT_EQ(second.mesh(1).materials.at(0).colour, (annColour{0, 0.1F, 0, 1}));

  writer.must_write(first.document, directory / "bare.obj", {{"WRITE_MATERIALS", "0"}});
  EXPECT_EQ(TemporaryDirectory::read(directory / "bare.obj").find("mtl"), std::string::npos);

  const Messages odd_name = writer.must_write(first.document, directory / "a #b.obj");
  EXPECT_NE(odd_name.warnings.find("no materials are written"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(directory / "a #b.mtl"));
  EXPECT_NE(writer.must_write(first.document, "/dev/null").notes.find("no colours"), std::string::npos);
}

}  // namespace
