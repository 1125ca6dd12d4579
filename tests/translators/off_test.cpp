#include <gtest/gtest.h>

#include "ReadingCase.h"
#include "Solids.h"
#include "TemporaryDirectory.h"
#include "Translator.h"

namespace {

const Translator reader("offreader");
const Translator writer("offwriter");

const std::string square = "0 0 0\n1 0 0\n1 1 0\n0 1 0\n";

using Case = ReadingCase<std::string>;

void check(const Case& c, const TemporaryDirectory& directory) {
  check_reading(c, reader.read(directory.write("case.off", c.content)), corners_of);
}

TEST(OffReader, ReadsAllHeadsAndLines) {
  TemporaryDirectory directory;
  const Case cases[] = {
      {"plain", "OFF\n4 2 0\n" + square + "3 0 1 2\n4 0 1 2 3", "0 1 2|0 1 2 3"},
      {"counts behind the keyword", "OFF 4 1 0\n" + square + "3 0 1 2\n", "0 1 2"},
      {"counts glued to it", "OFF4 1\n" + square + "3 0 1 2\n", "0 1 2"},
      {"no keyword, a mark",
       "\xEF\xBB\xBF"
       "4 1 0\n" +
           square + "3 0 1 2\n",
       "0 1 2"},
      {"counts on two lines", "OFF\n4\n1\n" + square + "3 0 1 2\n", "0 1 2"},
      {"comments, CR LF",
       "# a\r\n\r\nOFF#b\r\n# c\r\n4 1 0 # d\r\n0 0 0 # e\r\n # f\r\n1 0 0\r\n1 1 0\r\n\r\n0 1 0\r\n3 0 1 2#g\r\n#",
       "0 1 2"},
      {"CR", "OFF\r3 1 0\r0 0 0\r1 0 0\r1 1 0\r3 0 1 2\r", "0 1 2"},
      {"textures", "STOFF 3 1 0\n0 0 0 .5 .5\n1 0 0 0 1\n1 1 0 0 0\n3 0 1 2", "0 1 2",
       "texture coordinates are left out (3 times)"},
      {"few corners", "OFF 4 3 0\n" + square + "2 0 1\n0\n3 0 1 2\n", "0 1 2",
       "line 6: faces with fewer than three corners are left out (2 times)"},
      {"table of colours", "OFF 4 1 0\n" + square + "3 0 1 2 7\n", "0 1 2", "line 6: faces name colours of a table"},
      {"no colour", "OFF 4 1 0\n" + square + "3 0 1 2 7 7 7 7 7 7 7\n", "0 1 2", "line 6: what stands behind"},
      {"further numbers", "OFF 3 1 0\n0 0 0 1 2 3 4 5 6 7 8 9 10 11 12\n1 0 0\n0 1 0\n3 0 1 2\n", "0 1 2",
       "line 2: further numbers"},
      {"normal missing", "NOFF 3 1 0\n0 0 0 0 0 1\n1 0 0\n0 1 0 0 0 1\n3 0 1 2\n", "0 1 2",
       "line 3: a vertex has no normal"},
      {"points", "OFF 4 0 0\n" + square, "", "no faces"},
      {"more", "OFF 4 1 0\n" + square + "3 0 1 2\n3 0 1 3\n", "0 1 2", "line 7: more follows"},
      {"no keyword but a word", "MESH\n4 1 0\n", "!line 1: the keyword \"OFF\" is expected, \"MESH\""},
      {"nothing", "# x\n\n", "!nothing but blank lines"},
      {"four coordinates", "4OFF 3 1 0\n", "!line 1: 4OFF"},
      {"any number of them", "CnOFF\n2\n", "!line 1: nOFF"},
      {"binary", std::string("OFF BINARY\n\0\0\0\3", 15), "!line 1: the binary form"},
      {"no counts", "OFF\n", "!the file ends before its counts"},
      {"negative counts", "OFF -4 1 0\n", "!line 1: the counts of vertices and faces are expected"},
      {"lying", "OFF\n353535235358 6 0\n" + square, "!line 2: 353535235358 vertices and 6 faces need more"},
      {"lying a little", "OFF\n5 0 0\n" + square + "# and a comment", "!the file ends before vertex 5 of 5"},
      {"few coordinates", "OFF 3 1 0\n0 0\n1 0 0\n0 1 0\n3 0 1 2", "!line 2: a vertex needs three coordinates"},
      {"word", "OFF 3 1 0\n0 0 z\n1 0 0\n0 1 0\n3 0 1 2", "!line 2: the coordinate \"z\" is no number"},
      {"not finite", "OFF 3 1 0\n0 0 1e999\n1 0 0\n0 1 0\n3 0 1 2", "!line 2: a coordinate is no finite number"},
      {"index", "OFF 4 1 0\n" + square + "3 0 1 4\n", "!line 6: there is no vertex 4: the file has 4"},
      {"negative index", "OFF 4 1 0\n" + square + "3 0 -1 2\n", "!line 6: there is no vertex -1"},
      {"corners missing", "OFF 4 1 0\n" + square + "4 0 1 2\n", "!line 6: a face of 4 corners names 3"},
      {"many corners", "OFF 4 1 0\n" + square + "4000000000 0 1 2\n", "!line 6: a face of 4000000000 corners names 3"},
      {"no face", "OFF 4 1 0\n" + square + "2 0 1\n", "!no face of the file has three corners"}};
  for (const Case& c : cases) check(c, directory);
}

TEST(OffReader, TellsTheRangeOfColours) {
  TemporaryDirectory directory;
  const annColour red{1, 0.2F, 0, 1}, thin{1, 0.2F, 0, 0.2F};
  const struct {
    const char* keyword;
    const char* colour;
    annColour expected;
  } cases[] = {{"OFF", "255 51 0", red},          {"COFF", "255 51 0 255", red},
               {"COFF", "1.0 0.2 0 1", red},      {"OFF", "1 2e-1 0", red},
               {"COFF", "255.0 51 0", red},       {"COFF", "255 51 0 51", thin},
               {"COFF", "1 0.2 0 0.2", thin},     {"COFF", "255 51 0 1", red},
               {"COFF", "1 0 0 1", {1, 0, 0, 1}}, {"COFF", "1.0001 0.2 0 1.0001", red}};
  for (const auto& c : cases) {
    const std::string colour = std::string(" ") + c.colour + "\n";
    const std::string file = directory.write("a.off", c.keyword + std::string("\n3 2 0\n0 0 0") + colour +
                                                          "1 0 0\n1 1 0" + colour + "3 0 1 2" + colour + "3 2 1 0\n");
    const Reading reading = reader.must_read(file);
    EXPECT_EQ(reading.messages.notes_and_warnings(), "");
    const annMesh& mesh = reading.mesh();
    EXPECT_EQ(mesh.vertices->colours.at(0), c.expected) << c.colour;
    EXPECT_EQ(mesh.vertices->colours.at(1), (annColour{1, 1, 1, 1}));
    EXPECT_EQ(mesh.materials.at(mesh.face_material(0)).colour, c.expected) << c.colour;
    EXPECT_EQ(mesh.face_material(1), annMesh::no_material);
    EXPECT_TRUE(reader.read(file, {{"READ_MATERIALS", "0"}}).mesh().materials.empty());
  }
}

TEST(OffWriter, WritesWhatItReadsByteForByte) {
  TemporaryDirectory directory;
  // All kinds of colours and normals, whole files as they are written.
  const std::string files[] = {
      "OFF\n3 1 0\n0 0 0\n0.1 0 0\n0 1e+20 0\n3 0 1 2\n",
      "COFF\n4 2 0\n0 0 0 255 0 0 255\n1 0 0 0 51 0 0\n1 1 0 0 0 0 255\n0 1 0 0 0 0 255\n3 0 1 2\n4 0 1 2 3 255 51 0\n",
      "NOFF\n3 2 0\n0 0 0 0 0 1\n1 0 0 0 0.6 0.8\n0 1 0 0 0 0\n3 0 1 2 0.3 0 0 1\n3 2 1 0 1 1 1 0.5\n",
      "CNOFF\n3 1 0\n0 0 0 0 0 1 0.3 1 1e-05 1\n1 0 0 0 0 1 0 0 0 1\n0 1 0 0 0 1 0 0 0 0.5\n3 0 1 2\n"};
  for (const std::string& file : files) {
    const Reading reading = reader.must_read(directory.write("a.off", file));
    EXPECT_EQ(writer.must_write(reading.document, directory / "b.off").notes_and_warnings(), "");
    EXPECT_EQ(TemporaryDirectory::read(directory / "b.off"), file);
  }
}

TEST(OffWriter, PutsPartsTogether) {
  TemporaryDirectory directory;
  Reading reading = reader.read(directory.write(
      "a.off", "CNOFF\n3 1 0\n0 0 0 0 0 1 1 0 0 1\n1 0 1 0 0 1 0 0 0 1\n0 1 0 0 0 1 0 0 0 0.5\n3 0 1 2\n"));
  annNode& mirrored = reading.document.root.add_child("b");
  mirrored.body = reading.node(0).body;
  mirrored.transform.m[10] = -1;
  mirrored.colour = annColour{1, 0, 0, 1};
  annNode& bare = reading.document.root.add_child("c");
  bare.body.mesh = mesh_of({{0, 0, 0}, {1, 0, 0}, {0, 1, 0.125}}, {{0, 1, 2}});
  writer.must_write(reading.document, directory / "b.off",
                    {{"DIGITS", "2"}, {"WRITE_VERTEX_COLOURS", "0"}, {"WRITE_NORMALS", "0"}});
  EXPECT_EQ(TemporaryDirectory::read(directory / "b.off"),
            "OFF\n9 3 0\n0 0 0\n1 0 1\n0 1 0\n0 0 0\n1 0 -1\n0 1 0\n0 0 0\n1 0 0\n0 1 0.12\n3 0 1 2\n3 3 5 4 255 0 "
            "0\n3 6 7 8\n");

  // Colours of vertices would hide that of a part without any.
  bare.colour = annColour{0, 0, 1, 1};
  writer.must_write(reading.document, directory / "b.off", {{"WRITE_NORMALS", "0"}});
  const std::string text = TemporaryDirectory::read(directory / "b.off");
  EXPECT_NE(text.find("\n0 0 0 0 0 1 1\n1 0 0 0 0 1 1\n0 1 0.125 0 0 1 1\n"), text.npos) << text;
}

}  // namespace
