#include <gtest/gtest.h>

#include <functional>

#include "GltfFile.h"

namespace {

TEST(GltfReader, UnderstandsEveryKindOfPrimitiveAndIndex) {
  const struct {
    const char* what;
    std::function<void(File&, Json& primitive)> change;
    Corners expected;
  } cases[] = {{"as it is", [](File&, Json&) {}, {0, 1, 2}},
               {"bytes",
                [](File& f, Json& p) {
                  p["indices"] = f.add<std::uint8_t>("SCALAR", 5121, {2, 1, 3});
                },
                {2, 1, 3}},
               {"long",
                [](File& f, Json& p) {
                  p["indices"] = f.add<std::uint32_t>("SCALAR", 5125, {2, 1, 3});
                },
                {2, 1, 3}},
               {"strip without indices", [](File&, Json& p) { p.erase("indices"), p["mode"] = 5; }, {0, 1, 2, 1, 3, 2}},
               {"fan without indices", [](File&, Json& p) { p.erase("indices"), p["mode"] = 6; }, {1, 2, 0, 2, 3, 0}},
               {"two primitives, one set of vertices",
                [](File& f, Json& p) { f.json["meshes"][0]["primitives"].push_back(Json(p)); },
                {0, 1, 2, 0, 1, 2}},
               {"two sets of vertices",
                [](File& f, Json& p) {
                  Json second = p;
                  second["attributes"]["POSITION"] = f.add<float>("VEC3", 5126, {0, 0, 0, 1, 0, 0, 0, 1, 0});
                  f.json["meshes"][0]["primitives"].push_back(second);
                },
                {0, 1, 2, 4, 5, 6}},
               {"whole numbers with a point", [](File&, Json& p) { p["indices"] = 1.0; }, {0, 1, 2}}};
  for (const auto& c : cases) {
    File file;
    c.change(file, file.primitive());
    EXPECT_EQ(must_read(file.glb()).mesh().corners, c.expected) << c.what;
  }
}

TEST(GltfReader, UnderstandsEveryKindOfVertex) {
  const struct {
    const char* what;
    void (*change)(File&, Json& accessor);
    annVector second;  // point
  } cases[] = {
      {"with a stride",
       [](File& f, Json& a) {
         f.json["bufferViews"][0]["byteStride"] = 24;
         a["count"] = 2;
         f.primitive()["indices"] = f.add<std::uint8_t>("SCALAR", 5121, {0, 1, 1});
       },
       {0, 1, 0}},
      {"signed bytes to 1",
       [](File& f, Json& a) {
         a = f.json["accessors"]
                   [f.add<std::int8_t>("VEC3", 5120, {0, 0, 0, -128, 127, -127, 0, 1, 0}, {{"normalized", true}})];
       },
       {-1, 1, -1}},
      {"short as they are",
       [](File& f, Json& a) {
         a = f.json["accessors"][f.add<std::uint16_t>("VEC3", 5123, {0, 0, 0, 9, 65535, 0, 0, 1, 0})];
       },
       {9, 65535, 0}},
      {"sparse over data",
       [](File& f, Json& a) {
         f.add<std::uint8_t>("SCALAR", 5121, {1});
         f.add<float>("VEC3", 5126, {7, 8, 9});
         a["sparse"] =
             Json::parse(R"({"count":1,"indices":{"bufferView":2,"componentType":5121},"values":{"bufferView":3}})");
       },
       {7, 8, 9}},
      {"sparse over nothing",
       [](File& f, Json& a) {
         f.add<std::uint16_t>("SCALAR", 5123, {0, 2});
         f.add<float>("VEC3", 5126, {7, 8, 9, 1, 1, 1});
         a.erase("bufferView");
         a["sparse"] =
             Json::parse(R"({"count":2,"indices":{"bufferView":2,"componentType":5123},"values":{"bufferView":3}})");
       },
       {0, 0, 0}}};
  for (const auto& c : cases) {
    File file;
    Json accessor = file.json["accessors"][0];
    c.change(file, accessor);
    file.json["accessors"][0] = accessor;
    const Reading reading = must_read(file.glb());
    EXPECT_EQ(reading.mesh().vertices->points.at(1), c.second) << c.what;
  }
}

TEST(GltfReader, TakesColoursAsTheyAreShown) {
  File file;
  file.primitive()["material"] = 1;
  file.json["materials"] = Json::parse(R"([{"pbrMetallicRoughness":{"baseColorFactor":[1,1,1,0.5]}},
    {"name":"glass","alphaMode":"BLEND","pbrMetallicRoughness":{"baseColorFactor":[0.2140411,0,1,0.25]}},
    {"extensions":{"KHR_materials_pbrSpecularGlossiness":{"diffuseFactor":[0,0,1,0.5]}}}])");
  file.primitive()["attributes"]["COLOR_0"] = file.add<std::uint8_t>(
      "VEC4", 5121, {255, 0, 55, 51, 0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0, 255}, {{"normalized", true}});
  for (int material : {0, 2}) {
    file.json["meshes"][0]["primitives"].push_back(
        {{"attributes", {{"POSITION", 0}}}, {"material", material}, {"mode", 6}});
  }
  const Reading reading = must_read(file.glb());
  const annMesh& mesh = reading.mesh();
  EXPECT_EQ(mesh.face_materials, (Corners{0, 1, 1, 2, 2}));
  EXPECT_EQ(mesh.materials[0].name, "glass");
  EXPECT_NEAR(mesh.materials[0].colour.red, 0.5, 1e-6);
  EXPECT_EQ(mesh.materials[0].colour.opacity, 0.25F);
  EXPECT_EQ(mesh.materials[1].colour, (annColour{1, 1, 1, 1}));  // opaque, whatever the number
  EXPECT_EQ(mesh.materials[2].colour, (annColour{0, 0, 1, 1}));
  EXPECT_NEAR(mesh.vertices->colours.at(0).blue, 0.5014, 1e-3);
  // Vertices without a colour show that of their material.
  EXPECT_EQ(mesh.vertices->colours.at(4), (annColour{1, 1, 1, 1}));
  EXPECT_EQ(mesh.vertices->colours.at(8), (annColour{0, 0, 1, 1}));
  const Reading plain = must_read(file.glb(), {"READ_MATERIALS", "0"});
  EXPECT_TRUE(plain.mesh().face_materials.empty());
  EXPECT_EQ(plain.mesh().vertices->colours.at(0).red, 1);
  EXPECT_EQ(plain.mesh().vertices->colours.at(0).opacity, 0.2F);
}

TEST(GltfReader, MultipliesTheColoursOfMaterialsAndVertices) {
  const annColour red{1, 0, 0, 1}, black{0, 0, 0, 1}, green{0, 1, 0, 1}, white{1, 1, 1, 1};
  const char *named_red = R"([{"name":"red","pbrMetallicRoughness":{"baseColorFactor":[1,0,0,1]}}])", *bare = "[{}]";
  using Colours = std::vector<annColour>;
  const struct {
    const char *what, *materials;
    std::vector<float> of_vertices;
    Colours expected;
  } cases[] = {{"green over red", named_red, {0, 1, 0, 0, 1, 0, 1, 1, 1}, {black, black, red}},
               {"white over red", named_red, {1, 1, 1, 1, 1, 1, 1, 1, 1}, {}},
               {"green over nothing", bare, {0, 1, 0, 0, 1, 0, 0, 1, 0}, {green, green, green}},
               {"white over nothing", bare, {1, 1, 1, 1, 1, 1, 1, 1, 1}, {white, white, white}}};
  for (const auto& c : cases) {
    File file;
    file.json["materials"] = Json::parse(c.materials);
    Json& primitive = file.primitive();
    primitive["material"] = 0;
    primitive["attributes"]["POSITION"] = file.add<float>("VEC3", 5126, {0, 0, 0, 1, 0, 0, 0, 1, 0});
    primitive["attributes"]["COLOR_0"] = file.add<float>("VEC3", 5126, c.of_vertices);
    const Reading reading = must_read(file.glb());
    EXPECT_EQ(reading.mesh().vertices->colours, c.expected) << c.what;
    if (c.materials == named_red) {
      EXPECT_EQ(reading.mesh().materials, std::vector<annMaterial>({{"red", red}})) << c.what;
    }
  }
}

TEST(GltfReader, LetsOpacityCountWhereTheMaterialSaysSo) {
  const struct {
    const char* materials;
    float of_material, of_vertex;
  } cases[] = {{R"([{}])", 1, 1},
               {R"([{"alphaMode":"OPAQUE"}])", 1, 1},
               {R"([{"alphaMode":"BLEND"}])", 0.5F, 0.125F},
               {R"([{"alphaMode":"MASK","alphaCutoff":0.6}])", 0, 0},
               {R"([{"alphaMode":"MASK"}])", 1, 0},
               {R"([{"alphaMode":"MASK","alphaCutoff":0.2}])", 1, 0},
               {R"([{"alphaMode":"MASK","alphaCutoff":0.1}])", 1, 1}};
  for (const auto& c : cases) {
    File file;
    file.json["materials"] = Json::parse(c.materials);
    file.json["materials"][0]["pbrMetallicRoughness"]["baseColorFactor"] = {1, 1, 1, 0.5};
    file.primitive()["material"] = 0;
    file.primitive()["attributes"]["COLOR_0"] =
        file.add<float>("VEC4", 5126, {0, 1, 1, 0.25F, 1, 1, 1, 0.25F, 1, 1, 1, 0.25F, 1, 1, 1, 0.25F});
    const Reading reading = must_read(file.glb());
    EXPECT_EQ(reading.mesh().materials[0].colour.opacity, c.of_material) << c.materials;
    EXPECT_EQ(reading.mesh().vertices->colours.at(0).opacity, c.of_vertex) << c.materials;
  }
}

TEST(GltfReader, PlacesNodesAndSharesMeshes) {
  File file;
  file.json["scenes"][0]["nodes"] = {2, 1};
  file.json["meshes"][0]["name"] = "mesh";
  file.json["nodes"] = Json::parse(R"([{"mesh":0,"name":"a","matrix":[0,0,-1,0, 0,1,0,0, 1,0,0,0, 5,6,7,1]},{},
    {"mesh":0,"children":[0],"translation":[1,2,3],"rotation":[0,0,0.7071067811865476,0.7071067811865476],"scale":[2,1,1]}])");
  Reading reading = must_read(file.glb(), {"SCALE", "10"});
  EXPECT_EQ(reading.document.unit, velLENGTH_METRE);
  const annNode& outer = reading.node(0);
  EXPECT_EQ(outer.name, "mesh");
  EXPECT_TRUE(reading.node(1).body.empty() && reading.node(1).name.empty());
  const annVector point = outer.transform.point(outer.body.mesh->vertices->points.at(1));
  EXPECT_NEAR(point.x, 10, 1e-12);
  EXPECT_NEAR(point.y, 40, 1e-12);
  const annNode& inner = *outer.children.at(0);
  EXPECT_EQ(inner.name, "mesh");
  EXPECT_EQ(inner.instance_name, "a");
  EXPECT_TRUE(outer.instance_name.is_null());
  EXPECT_EQ(inner.body.mesh, outer.body.mesh);
  EXPECT_EQ(inner.transform.m, (std::array<double, 12>{0, 0, 1, 50, 0, 1, 0, 60, -1, 0, 0, 70}));
}

TEST(GltfReader, RemovesTheNodeThatTurnsTheModelAndNoOther) {
  const std::string turn = R"("matrix":[1,0,0,0, 0,0,-1,0, 0,1,0,0, 0,0,0,1])", below = R"("children":[1])",
                    mark = R"("extras":{"velUpAxis":"Z"})", part = R"({"mesh":0,"name":"part"})";
  const struct {
    const char* what;
    std::string nodes, roots;
    const char* option;
    bool removed;
  } cases[] = {
      {"as written", "{" + turn + "," + below + "," + mark + "}," + part, "[0]", "auto", true},
      {"Y asked for", "{" + turn + "," + below + "," + mark + "}," + part, "[0]", "y", true},
      {"Z asked for", "{" + turn + "," + below + "," + mark + "}," + part, "[0]", "z", false},
      {"kept", "{" + turn + "," + below + "," + mark + "}," + part, "[0]", "keep", false},
      {"no mark", "{" + turn + "," + below + R"(,"extras":["velUpAxis"]},)" + part, "[0]", "auto", false},
      {"moved", "{" + below + "," + mark + R"(,"translation":[0,0,1]},)" + part, "[0]", "auto", false},
      {"with a mesh", R"({"mesh":0,)" + turn + "," + below + "," + mark + "}," + part, "[0]", "auto", false},
      {"not alone", "{" + turn + "," + below + "," + mark + "}," + part + "," + part, "[0,2]", "auto", false},
      {"empty", "{" + turn + "," + mark + "}", "[0]", "auto", false},
  };
  for (const auto& c : cases) {
    File file;
    file.json["scenes"][0]["nodes"] = Json::parse(c.roots);
    file.json["nodes"] = Json::parse("[" + c.nodes + "]");
    const Reading reading = must_read(file.glb(), {"UP_AXIS", c.option});
    EXPECT_EQ(reading.node(0).name == "part", c.removed) << c.what;
    const std::string option = c.option;
    const annUpAxis otherwise = option == "keep" ? annUP_UNKNOWN : option == "z" ? annUP_Z : annUP_Y;
    EXPECT_EQ(reading.document.up, c.removed ? annUP_Z : otherwise) << c.what;
  }
}

TEST(GltfReader, WeldsAsAskedAndTellsWhatIsLeftOut) {
  File file;
  file.primitive()["attributes"]["POSITION"] = file.add<float>("VEC3", 5126, {0, 0, 0, 1, 0, 0, 0, 0, 0});
  file.primitive()["attributes"]["NORMAL"] = file.add<float>("VEC3", 5126, {0, 0, 2, 0, 0, 1, 0, 1, 0});
  for (int i = 0; i < 3; ++i) {
    file.json["meshes"][0]["primitives"].push_back({{"attributes", {{"POSITION", 0}}}, {"mode", i}});
  }
  file.json["textures"] = {Json::object(), Json::object()};
  file.json["cameras"] = {Json::object()};
  file.json["nodes"][0]["extensions"]["EXT_mesh_gpu_instancing"] = Json::object();
  file.json["extensionsRequired"] = {"KHR_materials_transmission"};
  file.json["materials"] = Json::parse(R"([{"extensions":{"KHR_materials_transmission":{}}}])");
  file.primitive()["material"] = 0;
  file.primitive()["attributes"]["TEXCOORD_0"] = 0;
  Reading reading = must_read(file.glb());
  EXPECT_EQ(reading.mesh().corners, (Corners{0, 1, 2}));
  EXPECT_EQ(reading.mesh().vertices->normals.at(0), (annVector{0, 0, 1}));
  EXPECT_EQ(reading.messages.notes,
            "textures are left out (2 times)\ncameras are left out\ntexture coordinates are left out\n"
            "of materials only name, colour and opacity are kept\npoints and lines are left out (3 times)\n"
            "of a mesh that a node shows in many places one is read\n");
  reading = must_read(file.glb(), {"WELD_POINTS", "1"});
  EXPECT_EQ(reading.mesh().corners, (Corners{0, 1, 0}));
  EXPECT_EQ(reading.mesh().vertices->count(), 2u);
  EXPECT_TRUE(reading.mesh().vertices->normals.empty());
  EXPECT_EQ(reading.mesh().vertices->normal_pool, (std::vector<annVector>{{0, 0, 1}, {0, 1, 0}}));
  EXPECT_EQ(reading.mesh().corner_normals, (Corners{0, 0, 1}));
}

}  // namespace
