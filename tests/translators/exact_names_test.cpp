#include <algorithm>
#include <regex>
#include <utility>

#include "ExactFiles.h"

namespace {

const std::string unknown = "\xEF\xBF\xBD", e_acute = "\xC3\xA9", sun = "\xE6\x97\xA5", smile = "\xF0\x9F\x98\x80";

bool is_ascii(const std::string& text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::string repeated(const std::string& text, int times) {
  std::string result;
  while (times-- > 0) result += text;
  return result;
}

class ExactNames : public ExactFiles {
 protected:
  std::string name_read(const std::string& bytes, const std::string& format) const {
    return read(bytes, format).node(0).name.str();
  }
};

}  // namespace

TEST_F(ExactNames, StepSpellsAllCharactersInAscii) {
  const struct {
    std::string name, spelled, read;
  } cases[] = {{e_acute + sun + "!" + smile, R"(\X2\00E965E5\X0\!\X4\0001F600\X0\)", e_acute + sun + "!" + smile},
               {R"(it's \X2\00E9\X0\ c:\S\D)", R"(it''s \\X2\\00E9\\X0\\ c:\\S\\D)", R"(it's \X2\00E9\X0\ c:\S\D)"},
               {"two\nlines", "two lines", "two lines"},
               {"lat\xE9", R"(lat\X2\FFFD\X0\)", "lat" + unknown},
               {"half\xE6\x97", R"(half\X2\FFFDFFFD\X0\)", "half" + unknown + unknown},
               {"\xED\xA0\x80", R"(\X2\FFFDFFFDFFFD\X0\)", unknown + unknown + unknown}};
  for (const auto& it : cases) {
    const std::string bytes = written(triangle(it.name), "step");
    EXPECT_TRUE(is_ascii(bytes)) << it.name;
    EXPECT_NE(bytes.find("PRODUCT('" + it.spelled + "',"), bytes.npos) << it.name;
    EXPECT_EQ(name_read(bytes, "step"), it.read);
  }
}

TEST_F(ExactNames, LongNamesOverSeveralLinesStayWhole) {
  for (int start = 0; start < 4; ++start) {
    const std::string name = std::string(static_cast<std::size_t>(start), 'x') + repeated(sun + e_acute + smile, 60);
    const std::string bytes = written(triangle(name), "step");
    EXPECT_TRUE(is_ascii(bytes));
    EXPECT_EQ(name_read(bytes, "step"), name);
  }
}

TEST_F(ExactNames, IgesWritesAsciiAndSaysSo) {
  const std::pair<std::string, std::string> cases[] = {{e_acute + sun, "e?"},
                                                       {"M\xC3\xB6"
                                                        "bel",
                                                        "Mobel"},
                                                       {"Stra\xC3\x9F"
                                                        "e \xC5\x81\xC3\xB3"
                                                        "d\xC5\xBA",
                                                        "Strasse Lodz"},
                                                       {"e\xCC\x81t\xC3\xA9", "ete"},
                                                       {"lat\xE9", "lat?"},
                                                       {"plain", "plain"}};
  for (const auto& [name, ascii] : cases) {
    Messages messages;
    const std::string bytes = written(triangle(name), "iges", messages);
    EXPECT_TRUE(is_ascii(bytes)) << name;
    EXPECT_EQ(name_read(bytes, "iges"), ascii);
    EXPECT_EQ(messages.notes.find("names in ASCII") != std::string::npos, name != ascii) << name;
  }
}

// Each has the five bytes of the name that it stands for.
TEST_F(ExactNames, NamesInOtherEncodingsAreRead) {
  const std::pair<std::string, std::string> cases[] = {{"abcd\xE9", "abcd" + e_acute},
                                                       {"\xE9\xE8\xE7 x", e_acute + "\xC3\xA8\xC3\xA7 x"},
                                                       {e_acute + "abc", e_acute + "abc"},
                                                       {"\xE9" + e_acute + "ab", e_acute + e_acute + "ab"}};
  for (const std::string format : {"step", "iges"}) {
    const std::string ground = written(triangle("N-A-M"), format);
    for (const auto& [bytes, name] : cases) EXPECT_EQ(name_read(replaced(ground, "N-A-M", bytes), format), name);
  }
}

TEST_F(ExactNames, ProductsStayApartWhereTheirOccurrencesHaveNoNames) {
  const std::string named = TemporaryDirectory::read(example);
  const std::regex occurrence("NEXT_ASSEMBLY_USAGE_OCCURRENCE\\('[^']*','[^']*'");
  const std::string bytes = std::regex_replace(named, occurrence, "NEXT_ASSEMBLY_USAGE_OCCURRENCE('',''");
  ASSERT_NE(bytes, named);
  const Reading reading = read(bytes, "step");
  EXPECT_EQ(reading.statistics().parts, reader("step").read(example).statistics().parts);
  const auto& occurrences = reading.node(0).children;
  ASSERT_EQ(occurrences.size(), 3U);
  EXPECT_EQ(occurrences[0]->name, "bracket");
  EXPECT_EQ(occurrences[2]->name, "bolt");
}

TEST_F(ExactNames, WhatAFormatHoldsNotIsSaid) {
  annDocument document = triangle("part");
  document.root.children[0]->colour = {1, 0, 0, 0.5F};
  Messages brep, iges;
  written(document, "brep", brep);
  written(document, "iges", iges);
  EXPECT_NE(brep.notes.find("BREP holds no names:"), std::string::npos) << brep.notes;
  EXPECT_NE(iges.notes.find("IGES holds no opacity"), std::string::npos) << iges.notes;
}

TEST_F(ExactNames, StepKeepsTheNamesOfInstancesAndProducts) {
  annDocument document;
  document.unit = velLENGTH_MILLIMETRE;
  annNode& pair = document.root.add_child("pair");
  const auto nut = triangle("nut").root.children[0]->body.mesh;
  for (const char* instance : {"nut_1", "nut"}) {
    annNode& node = pair.add_child("nut");
    node.instance_name = instance;
    node.body.mesh = nut;
    node.transform.m[3] = static_cast<double>(pair.children.size() - 1);
  }
  const std::string bytes = written(document, "step");
  EXPECT_TRUE(std::regex_search(bytes, std::regex(R"(NEXT_ASSEMBLY_USAGE_OCCURRENCE\('[^']*','nut_1',)")));
  EXPECT_NE(bytes.find("PRODUCT('nut',"), bytes.npos);

  // What the kernel and other programs put in the place of a name is none.
  const std::pair<const char*, const char*> cases[] = {
      {"nut_1", "nut_1"}, {"left nut", "left nut"}, {"NAUO", "NAUO"}, {"NAUO12", ""}, {"7", ""}, {"", ""}, {"nut", ""}};
  for (const auto& [spelled, read_as] : cases) {
    const Reading reading = read(replaced(bytes, "'nut_1'", "'" + std::string(spelled) + "'"), "step");
    const auto& nuts = reading.node(0).children;
    ASSERT_EQ(nuts.size(), 2U) << spelled;
    EXPECT_EQ(nuts[0]->name.str(), "nut") << spelled;
    EXPECT_EQ(nuts[0]->instance_name.str(), read_as) << spelled;
    EXPECT_TRUE(nuts[1]->instance_name.empty()) << spelled;
  }
}

TEST_F(ExactNames, FormatsWithOneNameGetThatOfTheInstance) {
  annDocument one = triangle("Mesh_12"), two = triangle("Mesh_12");
  one.root.children[0]->instance_name = "Wing";
  two.root.children[0]->instance_name = "Wing";
  annNode& tail = two.root.add_child("Mesh_13");
  tail.instance_name = "Tail";
  tail.body.mesh = std::make_shared<annMesh>(*two.root.children[0]->body.mesh);
  annNode& rod = tail.add_child("rod");
  rod.instance_name = "rod_1";
  rod.body.mesh = two.root.children[0]->body.mesh;

  const struct {
    const annDocument& document;
    const char* format;
    std::vector<std::string> names, lost;
  } cases[] = {{one, "step", {"PRODUCT('Wing',"}, {"Mesh_12"}},
               {triangle("Mesh_12"), "step", {"PRODUCT('Mesh_12',"}, {}},
               {two, "step", {"'Wing',", "'Mesh_12',", "'Tail',", "'Mesh_13',", "'rod_1',", "'rod',"}, {}},
               {one, "iges", {"4HWing"}, {}},
               {two, "iges", {"4HWing", "4HTail", "5Hrod_1"}, {}}};
  for (const auto& it : cases) {
    Messages messages;
    const std::string bytes = written(it.document, it.format, messages);
    for (const auto& name : it.names) EXPECT_NE(bytes.find(name), bytes.npos) << it.format << name;
    EXPECT_EQ(messages.notes.find("its other name") != std::string::npos, !it.lost.empty()) << messages.notes;
    for (const auto& name : it.lost) EXPECT_NE(messages.notes.find('"' + name + '"'), std::string::npos);
  }
}
