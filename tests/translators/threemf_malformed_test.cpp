#include <gtest/gtest.h>

#include "ThreemfFile.h"

namespace {

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
  std::string deep, doubled = a, named = mesh("1", "name=\"" + std::string(100000, 'n') + "\"");
  for (int i = 0; i < 300; ++i) deep += "<c:odd>";
  for (int i = 2; i < 40; ++i) {
    const std::string twice = assembly(std::to_string(i), use(std::to_string(i - 1)) + use(std::to_string(i - 1)));
    doubled += twice;
    if (i < 14) named += twice;
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
      {"displaced",
       only(model(a, built,
                  "xmlns:d=\"http://schemas.3mf.io/3dmanufacturing/displacement/2023/10\" requiredextensions=\"d\"")),
       "!displacement/2023/10\", which replaces meshes"},
      {"no prefix", only(model(a, built, "requiredextensions=\"q\"")), "!extension \"q\" has no namespace"},
      {"unit", only(model(a, built, "unit=\"parsec\"")), "!unit \"parsec\""},
      {"nothing to build", only(model(mesh("1", "", ""), built)), "!shows no object"},
      {"unknown object", only(model(a, item("2"))), "!there is no object 2"},
      {"itself", only(model(assembly("1", use("1")), built)), "!line 6: object 1: there is no object 1 before"},
      {"cycle", only(model(assembly("1", use("2")) + assembly("2", use("1")), built)),
       "!object 1: there is no object 2"},
      {"twice", only(model(a + a, built)), "!several resources 1"},
      {"multiplied", only(model(doubled, item("39"))), "!more than a million"},
      {"names multiplied", only(model(named, item("13"))), "!the names of all placed objects"},
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

  reader.must_not_read(pack(directory, only(model(a, built)), true), "encrypted");
  const std::string whole = TemporaryDirectory::read(pack(directory, only(model(a, built))));
  for (std::size_t at = 0; at < whole.size(); at += 3) {
    std::string damaged = whole;
    damaged[at] = static_cast<char>(damaged[at] ^ 0x55);
    EXPECT_FALSE(reader.read(directory.write("cut.3mf", damaged)).fault()) << at;
  }
}

}  // namespace
