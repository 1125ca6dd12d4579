#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "TemporaryDirectory.h"
#include "vluFileTypeFinder.h"
#include "vluFileTypeInfo.h"

namespace {

// A binary STL of `count` equal triangles, the header filled up with zeros.
std::string binary_stl(std::string header, std::uint32_t count, std::uint32_t claimed) {
  header.resize(80);
  header.append(reinterpret_cast<const char*>(&claimed), 4);
  const float numbers[12] = {0, 0, 5, 1, 1, 0, 3, 1, 0, 1, 4, 0};  // normals need not be of length 1
  for (std::uint32_t i = 0; i < count; ++i) {
    header.append(reinterpret_cast<const char*>(numbers), sizeof numbers).append(2, '\0');
  }
  return header;
}

std::string zip_member(const std::string& name) {
  std::string header("PK\3\4", 4);
  header.append(22, '\0');
  header += static_cast<char>(name.size());
  header.append(3, '\0');
  return header + name + "content";
}

std::string iges_line(std::string text, char section, int number) {
  text.resize(72, ' ');
  const std::string digits = std::to_string(number);
  return text + section + std::string(7 - digits.size(), ' ') + digits;
}

}  // namespace

TEST(FileTypes, AreToldByContent) {
  const std::string cube = "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n";
  const std::string lines = iges_line("start", 'S', 1) + "\r\n" + iges_line("1H,,1H;", 'G', 1) + "\r\n";
  std::string long_face = "f 1 2 3";
  for (int i = 4; i < 30000; ++i) long_face += " " + std::to_string(i);
  std::string many_points;
  for (int i = 0; i < 9999; ++i) many_points += "0.25 " + std::to_string(i) + " 1\n";
  const struct {
    vluFileType type;
    std::vector<std::string> contents;
  } cases[] = {
      {vluSTL,
       {binary_stl("", 3, 3), binary_stl("solid but binary", 3, 3), binary_stl("solid", 3, 3) + "\n",
        binary_stl("", 3, 3) + std::string(500, 'x'), binary_stl("", 1, 1).substr(0, 134) + "z",
        // Cut off, also behind the count.
        binary_stl("", 3, 9000), binary_stl("exported STL", 0, 2), "solid a\nfacet normal 0 0 1\n outer loop\n",
        "# made by hand\r\n\r\n  SOLID a b c\r\n  ENDSOLID\r\n", "solid\nname on a line of its own\nfacet\nouter loop",
        "solid cut off in its na", "solid a\nfac", binary_stl("", 0, 0)}},
      // One has nothing but comments in its head.
      {vluOBJ,
       {cube, "# " + std::string(70000, 'c') + "\n" + cube, long_face, "v 1 2 \\\n 3\nf -1 -2 -3",
        "mtllib a.mtl\ng part\nusemtl red\n", "\xEF\xBB\xBFo a\rv 1 2 3\rv 1 2 4",
        // Statements of its writer's own.
        "v 0 0 0\nvc 1 0 0\nv 1 0 0\nvc 0 1 0\nv 0 1 0\nvc 0 0 1\nf 1 2 3\n"}},
      {vluPLY,
       {"ply\nformat ascii 1.0\nelement vertex 3\n", "ply \r\nformat binary_little_endian 1.0\r\n", "ply",
        "ply\rcomment x\rformat ascii 1.0\r", "\xEF\xBB\xBFply\nformat ascii 1.0\n"}},
      {vluOFF,
       {"OFF\n3 1 0\n0 0 0\n", "# first\n\n# second\nSTCN4OFF 3 1 0", "OFF8 6 12\n",
        std::string("OFF BINARY\n\0\0\0\3", 15), "COFF", "#\r\n# x\r\nNOFF # y\r\n8 6 0\r\n", "STOFF\r3 1 0\r",
        "NCOFF 3 1", "4nOFF\n2\n",
        // Without a keyword: whole, and longer than the head.
        "3 1 0\n0 0 0\n# c\n1 0 0\n0 1 0.5 255 0 0\n3 0 1 2\n", "9999 1 0\n" + many_points}},
      {vluGLTF,
       {" {\"x\": {\"asset\": 1}, \"asset\" : {\"version\": \"2.0\"}}",
        "{\"buffers\":[{\"uri\":\"" + std::string(200000, 'A') + "\"}],\"asset\":{}}",
        "{\"nodes\": [], \"meshes\": [{\"na"}},
      {vluGLB, {"glTF\1"}},
      {vlu3MF, {zip_member("[Content_Types].xml") + zip_member("3D/3dmodel.model"), zip_member("/3d/part.model")}},
      {vluHPF, {"\x89HPF\r\n\x1a\nrest"}},
      {vluSTEP, {"\n\n ISO-10303-21;\nHEADER;"}},
      // With line breaks, without, filled up with null bytes, and with a line that is too long.
      {vluIGES,
       {lines, lines + std::string(1000, '\0'), iges_line("", 'S', 1) + iges_line("", 'G', 1),
        "too long for its line " + iges_line("", 'S', 1) + "\n"}},
      {vluBREP,
       {"DBRep_DrawableShape\n\nCASCADE Topology V1, (c)\n", "CASCADE Topology V3", "\nOpen CASCADE Topology V4\n"}},
      {vluUNKNOWN,
       {"", "solid state physics\nis a field of its own\n", std::string(83, '\0'), std::string(4000, '\0'),
        std::string(4000, '\xFF'), binary_stl("", 0, 3), "# only a comment\n", "newmtl red\nKd 1 0 0\nillum 2\n",
        "offset 3 1 0\n", "OFFICE hours\n", "{\"name\": \"asset\", \"nodes\": 1}",
        zip_member("[Content_Types].xml") + zip_member("word/document.xml"), zip_member("a.txt"), "playing\nformat\n",
        "1 2 3\n4 5 6\n", "3 2 0\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n", "3 1 0\n1 1 1\n2 2 2\n3 3 3\n3 4 4\n"}}};
  TemporaryDirectory directory;
  for (const auto& [expected, contents] : cases) {
    for (const std::string& content : contents) {
      // The name says nothing, whatever it says.
      const auto type = vluFileTypeFinder::find_file_type(directory.write("file.step", content));
      EXPECT_EQ(vluFileTypeInfo::name(type), vluFileTypeInfo::name(expected)) << content.substr(0, 60);
    }
  }
}

TEST(FileTypes, TextInUtf16IsOfNoType) {
  const std::string text = "solid a\nendsolid a\n";
  std::string little, big;
  for (char c : text) {
    little += {c, '\0'};
    big += {'\0', c};
  }
  TemporaryDirectory directory;
  for (const std::string& wide : {"\xFF\xFE" + little, "\xFE\xFF" + big, little, big}) {
    const std::string file = directory.write("file.stl", wide);
    EXPECT_TRUE(vluFileTypeFinder::is_utf16_text(file)) << wide;
    EXPECT_EQ(vluFileTypeFinder::find_file_type(file), vluUNKNOWN) << wide;
  }
  for (const std::string& other : {text, std::string(40, '\0'), std::string("\xFF\xFE"), binary_stl("", 3, 9)}) {
    EXPECT_FALSE(vluFileTypeFinder::is_utf16_text(directory.write("file.stl", other))) << other;
  }
}

TEST(FileTypes, WhatIsNoFileIsUnknownAtOnce) {
  TemporaryDirectory directory;
  const std::string pipe = directory.make_pipe("pipe");
  for (const std::string& path : {pipe, directory.path().string(), directory / "missing", std::string("/dev/zero"),
                                  std::string(), std::string("/dev/null\0x", 11)}) {
    EXPECT_EQ(vluFileTypeFinder::find_file_type(path), vluUNKNOWN) << path;
  }
}

TEST(FileTypes, NamesAreUniqueAndFitIntoCacheFiles) {
  std::set<std::string> names;
  for (int i = vluUNKNOWN; i <= vluBREP; ++i) {
    const auto type = static_cast<vluFileType>(i);
    const utString name = vluFileTypeInfo::name(type);
    EXPECT_TRUE(names.insert(name.str()).second) << name.str();
    EXPECT_EQ(name.str().find_first_of("\"{},\n"), std::string::npos);
    vluFileType found = vluHPF;
    EXPECT_TRUE(vluFileTypeInfo::type_by_name(name, found) && found == type);
  }
  vluFileType untouched = vluHPF;
  EXPECT_FALSE(vluFileTypeInfo::type_by_name("stl", untouched));
  EXPECT_EQ(untouched, vluHPF);
  EXPECT_EQ(vluFileTypeInfo::name(static_cast<vluFileType>(99)), "Unknown");
}
