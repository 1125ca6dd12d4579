#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <limits>
#include <nlohmann/json.hpp>
#include <numbers>

#include "TemporaryDirectory.h"
#include "Translator.h"

namespace {

using Json = nlohmann::json;

const Translator reader("gltfreader");
const Translator text_writer("gltfwriter");
const Translator binary_writer("glbwriter");

template <typename T>
std::string bytes_of(const std::vector<T>& numbers) {
  return {reinterpret_cast<const char*>(numbers.data()), numbers.size() * sizeof(T)};
}

std::string glb(const Json& json, std::string binary, std::uint32_t version = 2) {
  std::string text = json.dump();
  text.resize((text.size() + 3) / 4 * 4, ' ');
  binary.resize((binary.size() + 3) / 4 * 4);
  auto chunk = [](const char* kind, const std::string& bytes) {
    return bytes_of<std::uint32_t>({static_cast<std::uint32_t>(bytes.size())}) + std::string(kind, 4) + bytes;
  };
  const std::string chunks = chunk("JSON", text) + chunk("BIN", binary);
  return "glTF" + bytes_of<std::uint32_t>({version, static_cast<std::uint32_t>(12 + chunks.size())}) + chunks;
}

// A file of one triangle in a node, to which accessors can be added.
struct File {
  std::string binary;
  Json json = Json::parse(R"({"asset":{"version":"2.0"},"scenes":[{"nodes":[0]}],"nodes":[{"mesh":0}],
    "meshes":[{"primitives":[{"attributes":{"POSITION":0},"indices":1}]}],"buffers":[{}]})");

  File() {
    add<float>("VEC3", 5126, {0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 1, 0});
    add<std::uint16_t>("SCALAR", 5123, {0, 1, 2});
  }

  template <typename T>
  std::size_t add(const char* type, int component_type, const std::vector<T>& numbers,
                  const Json& more = Json::object()) {
    const std::size_t size = std::string(type) == "SCALAR" ? 1 : static_cast<std::size_t>(type[3] - '0');
    binary.resize((binary.size() + 3) / 4 * 4);
    const std::string bytes = bytes_of(numbers);
    json["bufferViews"].push_back({{"buffer", 0}, {"byteOffset", binary.size()}, {"byteLength", bytes.size()}});
    Json accessor{{"bufferView", json["bufferViews"].size() - 1},
                  {"componentType", component_type},
                  {"count", numbers.size() / size},
                  {"type", type}};
    accessor.update(more);
    json["accessors"].push_back(accessor);
    binary += bytes;
    json["buffers"][0]["byteLength"] = binary.size();
    return json["accessors"].size() - 1;
  }

  Json& primitive() { return json["meshes"][0]["primitives"][0]; }
  std::string glb() const { return ::glb(json, binary); }
};

Reading read(const std::string& content, std::pair<const char*, const char*> option = {"WELD_POINTS", "0"}) {
  TemporaryDirectory directory;
  return reader.read(directory.write("a.glb", content), {{"WELD_POINTS", "0"}, option});
}

std::vector<std::uint32_t> corners(const Reading& reading) {
  EXPECT_EQ(reading.result, velabsDONE) << reading.messages.errors;
  return reading.result == velabsDONE ? reading.mesh().corners : std::vector<std::uint32_t>();
}

using Corners = std::vector<std::uint32_t>;

TEST(GltfReader, UnderstandsEveryKindOfPrimitiveAndIndex) {
  const struct {
    const char* what;
    void (*change)(File&);
    Corners expected;
  } cases[] = {{"as it is", [](File&) {}, {0, 1, 2}},
               {"bytes",
                [](File& f) {
                  f.primitive()["indices"] = f.add<std::uint8_t>("SCALAR", 5121, {2, 1, 3});
                },
                {2, 1, 3}},
               {"long",
                [](File& f) {
                  f.primitive()["indices"] = f.add<std::uint32_t>("SCALAR", 5125, {2, 1, 3});
                },
                {2, 1, 3}},
               {"strip",
                [](File& f) {
                  f.primitive()["indices"] = f.add<std::uint8_t>("SCALAR", 5121, {0, 1, 2, 3, 0});
                  f.primitive()["mode"] = 5;
                },
                {0, 1, 2, 1, 3, 2, 2, 3, 0}},
               {"fan without indices",
                [](File& f) {
                  f.primitive().erase("indices");
                  f.primitive()["mode"] = 6;
                },
                {1, 2, 0, 2, 3, 0}},
               {"two primitives, one set of vertices",
                [](File& f) { f.json["meshes"][0]["primitives"].push_back(f.primitive()); },
                {0, 1, 2, 0, 1, 2}},
               {"two sets of vertices",
                [](File& f) {
                  Json second = f.primitive();
                  second["attributes"]["POSITION"] = f.add<float>("VEC3", 5126, {0, 0, 0, 1, 0, 0, 0, 1, 0});
                  f.json["meshes"][0]["primitives"].push_back(second);
                },
                {0, 1, 2, 4, 5, 6}},
               {"whole numbers with a point", [](File& f) { f.primitive()["indices"] = 1.0; }, {0, 1, 2}}};
  for (const auto& c : cases) {
    File file;
    c.change(file);
    EXPECT_EQ(corners(read(file.glb())), c.expected) << c.what;
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
    const Reading reading = read(file.glb());
    ASSERT_EQ(reading.result, velabsDONE) << c.what << reading.messages.errors;
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
  const Reading reading = read(file.glb());
  ASSERT_EQ(reading.result, velabsDONE) << reading.messages.errors;
  const annMesh& mesh = reading.mesh();
  EXPECT_EQ(mesh.face_materials, (Corners{0, 1, 1, 2, 2}));
  EXPECT_EQ(mesh.materials[0].name, "glass");
  EXPECT_NEAR(mesh.materials[0].colour.red, 0.5, 1e-6);
  EXPECT_EQ(mesh.materials[0].colour.opacity, 0.25F);
  EXPECT_EQ(mesh.materials[1].colour, (annColour{1, 1, 1, 1}));  // opaque, whatever the number
  EXPECT_EQ(mesh.materials[2].colour, (annColour{0, 0, 1, 1}));
  EXPECT_NEAR(mesh.vertices->colours.at(0).blue, 0.5014, 1e-3);
  EXPECT_EQ(mesh.vertices->colours.at(0).opacity, 0.2F);
  EXPECT_EQ(mesh.vertices->colours.at(4), (annColour{1, 1, 1, 1}));  // of a primitive without
  const Reading plain = read(file.glb(), {"READ_MATERIALS", "0"});
  EXPECT_TRUE(plain.mesh().face_materials.empty());
  EXPECT_EQ(plain.mesh().vertices->colours.at(0).opacity, 0.2F);
}

TEST(GltfReader, LetsOpacityCountWhereTheMaterialSaysSo) {
  const struct {
    const char* materials;
    float of_material, of_vertex;
  } cases[] = {{R"([{}])", 1, 1},
               {R"([{"alphaMode":"OPAQUE"}])", 1, 1},
               {R"([{"alphaMode":"BLEND"}])", 0.4F, 0.2F},
               {R"([{"alphaMode":"MASK"}])", 0, 0},
               {R"([{"alphaMode":"MASK","alphaCutoff":0.3}])", 1, 0},
               {R"([{"alphaMode":"MASK","alphaCutoff":0.1}])", 1, 1}};
  for (const auto& c : cases) {
    File file;
    file.json["materials"] = Json::parse(c.materials);
    file.json["materials"][0]["pbrMetallicRoughness"]["baseColorFactor"] = {1, 1, 1, 0.4};
    file.primitive()["material"] = 0;
    file.primitive()["attributes"]["COLOR_0"] =
        file.add<float>("VEC4", 5126, {1, 1, 1, 0.2F, 1, 1, 1, 0.2F, 1, 1, 1, 0.2F, 1, 1, 1, 0.2F});
    const Reading reading = read(file.glb());
    ASSERT_EQ(reading.result, velabsDONE) << c.materials << reading.messages.errors;
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
  Reading reading = read(file.glb(), {"SCALE", "10"});
  ASSERT_EQ(reading.result, velabsDONE) << reading.messages.errors;
  EXPECT_EQ(reading.document.unit, velLENGTH_METRE);
  const annNode& outer = reading.node(0);
  EXPECT_EQ(outer.name, "mesh");
  EXPECT_TRUE(reading.node(1).body.empty() && reading.node(1).name.empty());
  const annVector point = outer.transform.point(outer.body.mesh->vertices->points.at(1));
  EXPECT_NEAR(point.x, 10, 1e-12);
  EXPECT_NEAR(point.y, 40, 1e-12);
  const annNode& inner = *outer.children.at(0);
  EXPECT_EQ(inner.name, "a");
  EXPECT_EQ(inner.body.mesh, outer.body.mesh);
  EXPECT_EQ(inner.transform.m, (std::array<double, 12>{0, 0, 1, 50, 0, 1, 0, 60, -1, 0, 0, 70}));

  reading = read(file.glb(), {"Z_UP", "1"});
  EXPECT_EQ(reading.node(1).transform.point({1, 2, 3}), (annVector{1, -3, 2}));
  EXPECT_EQ(reading.node(0).children.at(0)->transform.m[3], 5);
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
  Reading reading = read(file.glb());
  EXPECT_EQ(corners(reading), (Corners{0, 1, 2}));
  EXPECT_EQ(reading.mesh().vertices->normals.at(0), (annVector{0, 0, 1}));
  EXPECT_EQ(reading.messages.notes,
            "textures are left out (2 times)\ncameras are left out\ntexture coordinates are left out\n"
            "of materials only name, colour and opacity are kept\npoints and lines are left out (3 times)\n"
            "of a mesh that a node shows in many places one is read\n");
  reading = read(file.glb(), {"WELD_POINTS", "1"});
  EXPECT_EQ(corners(reading), (Corners{0, 1, 0}));
  EXPECT_EQ(reading.mesh().vertices->count(), 2u);
  EXPECT_TRUE(reading.mesh().vertices->normals.empty());
  EXPECT_NE(reading.messages.notes.find("whose welded points"), std::string::npos);
}

TEST(GltfReader, NamesWhatIsWrongInTheJson) {
  const struct {
    const char* place;
    const char* value;
    const char* message;
  } cases[] = {
      {"/asset", "7", "asset: an object is expected"},
      {"/asset/version", "\"1.0\"", "only glTF 2"},
      {"/asset/minVersion", "\"2.1\"", "asset.minVersion: only glTF 2.0"},
      {"/extensionsRequired", "[\"KHR_draco_mesh_compression\"]", "\"KHR_draco_mesh_compression\""},
      {"/meshes/0", "[]", "meshes[0]: an object is expected"},
      {"/meshes/0/primitives", "null", "meshes[0].primitives: an array is expected"},
      {"/meshes/0/primitives/0/indices", "\"1\"", "meshes[0].primitives[0].indices: a whole number"},
      {"/meshes/0/primitives/0/indices", "-1", "meshes[0].primitives[0].indices: a whole number"},
      {"/meshes/0/primitives/0/indices", "7", "meshes[0].primitives[0].indices: 7 is out of range: there are 2 acc"},
      {"/meshes/0/primitives/0/indices", "0", "accessors[0]: elements of type \"VEC3\""},
      {"/meshes/0/primitives/0/material", "0", "meshes[0].primitives[0].material: 0 is out of range"},
      {"/meshes/0/primitives/0/mode", "7", "meshes[0].primitives[0].mode: 7 stands for no kind"},
      {"/meshes/0/primitives/0/attributes/NORMAL", "1", "cannot be normals"},
      {"/accessors/0/componentType", "5124", "accessors[0].componentType: 5124"},
      {"/accessors/0/count", "5", "accessors[0]: 5 elements at byte 0 lead out of its bufferView, which has 48 bytes"},
      {"/accessors/0/count", "2",
       "meshes[0].primitives[0].indices: index 2 at 2 is out of range: there are 2 vertices"},
      {"/accessors/0/byteOffset", "18446744073709551615", "lead out of its bufferView"},
      {"/accessors/1/count", "2", "2 corners are no whole number of triangles"},
      {"/accessors/1/bufferView", "9", "accessors[1].bufferView: 9 is out of range"},
      {"/accessors/0/sparse", R"({"count":1,"indices":{"bufferView":0,"componentType":5125,"byteOffset":12},
         "values":{"bufferView":0}})",
       "accessors[0].sparse.indices: 1065353216 is out of range"},
      {"/accessors/0/sparse", R"({"count":4,"indices":{"bufferView":1,"componentType":5125},
         "values":{"bufferView":0}})",
       "accessors[0].sparse.indices: 4 of them lead out"},
      {"/accessors/0", R"({"componentType":5126,"type":"VEC3","count":2000000000})", "more than a file of this size"},
      {"/bufferViews/0/byteLength", "90", "bufferViews[0]: 90 bytes at 0 lead out of its buffer"},
      {"/bufferViews/0/byteOffset", "18446744073709551610", "lead out of its buffer"},
      {"/bufferViews/0/byteStride", "8", "smaller than its elements"},
      {"/bufferViews/0/byteStride", "0", "is not between 4 and 252"},
      {"/buffers/0/byteLength", "400", "buffers[0].byteLength: 400 bytes are promised, there are 56"},
      {"/buffers/0/uri", "\"../a.bin\"", "leads out of the directory"},
      {"/buffers/0/uri", "\"sub%2F..%2f..%2Fa.bin\"", "leads out of the directory"},
      {"/buffers/0/uri", "\"/etc/passwd\"", "leads out of the directory"},
      {"/buffers/0/uri", "\"file:///etc/passwd\"", "leads out of the directory"},
      {"/buffers/0/uri", "\"no%20file.bin\"", "the file \"no file.bin\" is not there"},
      {"/buffers/0/uri", "\"a%2.bin\"", "is no name of a file"},
      {"/buffers/0/uri", "\"data:a/b;base64,AAA*\"", "the base64 is wrong at character 4"},
      {"/buffers/0/uri", "\"data:a/b,AAAA\"", "only base64"},
      {"/nodes/0/children", "[0]", "nodes[0]: it stands below itself"},
      {"/nodes", R"([{"children":[1]},{"children":[2]},{"children":[1]}])", "nodes[2].children: nodes[1] already is"},
      {"/nodes/0/children", "[1]", "nodes[0].children[0]: 1 is out of range"},
      {"/nodes/0/matrix", "[1,2]", "nodes[0].matrix: 16 numbers are expected, not 2"},
      {"/nodes/0/matrix", "[1,0,0,1,0,1,0,0,0,0,1,0,0,0,0,1]", "nodes[0].matrix: its last row"},
      {"/nodes/0/rotation", "[0,0,0,0]", "nodes[0].rotation: it is no rotation"},
      {"/nodes/0/translation", "[0,0,null]", "nodes[0].translation[2]: a number is expected"},
      {"/scenes/0/nodes", "[0,0]", "scenes[0].nodes: nodes[0] stands in it twice"},
      {"/scene", "3", "scene: 3 is out of range"}};
  for (const auto& c : cases) {
    File file;
    file.json[Json::json_pointer(c.place)] = Json::parse(c.value);
    const Reading reading = read(file.glb());
    EXPECT_EQ(reading.result, velabsFAILED) << c.place << c.value;
    EXPECT_NE(reading.messages.errors.find(c.message), std::string::npos) << c.message << reading.messages.errors;
    EXPECT_EQ(std::count(reading.messages.errors.begin(), reading.messages.errors.end(), '\n'), 1) << c.message;
  }
}

TEST(GltfReader, NamesWhatIsWrongInTheBytes) {
  File file;
  const std::string whole = file.glb();
  auto changed = [&](std::size_t at, std::uint32_t number) {
    return std::string(whole).replace(at, 4, bytes_of<std::uint32_t>({number}));
  };
  File infinite;
  infinite.binary.replace(16, 4, bytes_of<float>({std::numeric_limits<float>::quiet_NaN()}));
  File restart;
  restart.binary.replace(52, 2, "\xFF\xFF");
  const std::string deep(100000, '[');
  const std::pair<std::string, const char*> cases[] = {
      {glb(file.json, file.binary, 1), "version 1 of GLB"},
      {changed(8, 1U << 31), "says that it has 2147483648 bytes"},
      {changed(12, 0xFFFFFFF0U), "byte 12: a chunk of 4294967280 bytes"},
      {changed(12, 6), "no multiple of 4"},
      {changed(16, 7), "the first chunk is not JSON"},
      {infinite.glb(), "accessors[0]: element 1 is not of finite numbers"},
      {restart.glb(), "index 65535 at 2 is no number of a vertex"},
      {"{\"asset\":{\"version\":\"2.0\"},\"extras\":" + deep, "byte 235: the JSON is nested"},
      {"{\"asset\":{\"version\":\"2.0\"},nodes:[]}", "byte 28: this is no valid JSON"},
      {"{\"asset\":{\"version\":\"2.0\"}", "byte 26: the JSON ends too early"},
      {"{\"asset\":{\"version\":\"2.0\"},\"x\":1e999}", "no valid JSON"},
      {"[]", "no object"}};
  for (const auto& [content, message] : cases) {
    const Reading reading = read(content);
    EXPECT_EQ(reading.result, velabsFAILED) << message;
    EXPECT_NE(reading.messages.errors.find(message), std::string::npos) << message << ": " << reading.messages.errors;
  }
  for (std::size_t tenth = 0; tenth < 10; ++tenth) {
    const Reading reading = read(whole.substr(0, whole.size() * tenth / 10));
    EXPECT_EQ(reading.result, velabsFAILED) << tenth;
    EXPECT_FALSE(reading.fault()) << tenth;
  }
  EXPECT_NE(read(whole + "tail").messages.warnings.find("4 bytes behind"), std::string::npos);
}

TEST(GltfReader, KeepsToTheDirectoryOfTheFile) {
  TemporaryDirectory directory;
  File file;
  file.json["buffers"][0]["uri"] = "sub/a%20b.bin";
  std::filesystem::create_directory(directory / "sub");
  const std::string outside = directory.write("outside.bin", file.binary);
  const std::string text = directory.write("sub/a.gltf", Json(file.json).dump());
  std::filesystem::create_directory(directory / "sub/sub");
  std::filesystem::create_symlink(outside, directory / "sub/sub/a b.bin");
  EXPECT_NE(reader.read(text).messages.errors.find("a link that leads elsewhere"), std::string::npos);
  std::filesystem::remove(directory / "sub/sub/a b.bin");
  directory.write("sub/sub/a b.bin", file.binary);
  EXPECT_EQ(reader.read(text).result, velabsDONE);
}

// An assembly: a quad and a triangle, the triangle in glass, shown in the colour of each of two parts and once without.
annDocument assembly() {
  annDocument document;
  document.unit = velLENGTH_MILLIMETRE;
  auto mesh = std::make_shared<annMesh>();
  mesh->vertices->points = {{0, 0, 0}, {2000, 0, 0}, {2000, 1000, 0}, {0, 1000, 0}, {0, 0, 125}};
  mesh->vertices->normals.assign(5, {0, 0.6, 0.8});
  mesh->add_face(Corners{0, 1, 2, 3});
  mesh->add_face(Corners{0, 1, 4});
  mesh->materials.push_back({"glass \"\xC3\xA9\"\n", {0.1F, 200 / 255.0F, 1, 0.3F}});
  mesh->set_face_material(1, 0);
  auto coloured = std::make_shared<annMesh>(*mesh);
  coloured->vertices = std::make_shared<annVertices>(*mesh->vertices);
  for (int i = 0; i < 5; ++i) coloured->vertices->colours.push_back({static_cast<float>(i) / 255, 0.7F, 0.04F, 1});

  annNode& top = document.root.add_child("top");
  top.colour = annColour{1, 0, 0, 1};
  top.transform.m = {0, -1, 0, 1500, 1, 0, 0, 0, 0, 0, -1, 250};
  annNode& red = top.add_child("red");
  red.body.mesh = mesh;
  annNode& blue = red.add_child("");
  blue.colour = annColour{0, 0, 1, 0.5F};
  blue.body.mesh = mesh;
  top.add_child("again").body.mesh = mesh;
  document.root.add_child("none").body.mesh = coloured;
  document.root.add_child("empty").body.mesh = std::make_shared<annMesh>();
  return document;
}

TEST(GltfWriter, WritesWhatItReads) {
  TemporaryDirectory directory;
  const std::tuple<const Translator&, const char*, const char*> ways[] = {
      {binary_writer, "a.glb", "0"}, {text_writer, "b c.gltf", "0"}, {text_writer, "d.gltf", "1"}};
  for (const auto& [writer, name, embed] : ways) {
    Messages messages;
    ASSERT_EQ(writer.write(assembly(), directory / name, messages, {{"Z_UP", "1"}, {"EMBED_BUFFERS", embed}}),
              velabsDONE);
    EXPECT_NE(messages.notes.find("triangles only"), std::string::npos);
    EXPECT_NE(messages.notes.find("without faces"), std::string::npos);
    const Reading reading = reader.read(directory / name, {{"WELD_POINTS", "0"}, {"Z_UP", "1"}});
    ASSERT_EQ(reading.result, velabsDONE) << name << reading.messages.errors;

    const annNode& top = reading.node(0);
    EXPECT_EQ(top.name, "top");
    EXPECT_EQ(top.transform.m, (std::array<double, 12>{0, -1, 0, 1.5, 1, 0, 0, 0, 0, 0, -1, 0.25}));
    const annNode& red = *top.children.at(0);
    const annNode& blue = *red.children.at(0);
    EXPECT_EQ(red.name.str() + blue.name.str() + top.children.at(1)->name.str(), "redagain");
    EXPECT_EQ(top.children.at(1)->body.mesh, red.body.mesh);
    EXPECT_EQ(blue.body.mesh->vertices, red.body.mesh->vertices);
    EXPECT_EQ(red.body.mesh->materials[0].colour, (annColour{1, 0, 0, 1}));
    EXPECT_EQ(red.body.mesh->materials[1], assembly().root.children[1]->body.mesh->materials[0]);
    EXPECT_EQ(blue.body.mesh->materials[0].colour, (annColour{0, 0, 1, 0.5F}));
    EXPECT_EQ(red.body.mesh->face_materials, (Corners{0, 0, 1}));
    EXPECT_EQ(red.body.mesh->vertices->points[4], (annVector{0, 0, 0.125}));
    EXPECT_NEAR(red.body.mesh->vertices->normals[4].y, 0.6, 1e-7);
    EXPECT_EQ(reading.mesh(1).face_materials, (Corners{annMesh::no_material, annMesh::no_material, 0}));
    const auto& colours = reading.mesh(1).vertices->colours;
    for (std::size_t i = 0; i < 5; ++i) EXPECT_NEAR(colours.at(i).red * 255, static_cast<double>(i), 1e-4);
    EXPECT_NEAR(colours.at(0).green, 0.7, 1e-6);
    EXPECT_TRUE(reading.node(2).body.empty());

    // What was read is written as it stood.
    ASSERT_EQ(binary_writer.write(reading.document, directory / "again.glb", messages, {{"Z_UP", "1"}}), velabsDONE);
    EXPECT_EQ(TemporaryDirectory::read(directory / "again.glb"), TemporaryDirectory::read(directory / "a.glb")) << name;
  }
  EXPECT_TRUE(std::filesystem::exists(directory / "b c.bin"));
  EXPECT_FALSE(std::filesystem::exists(directory / "d.bin"));
}

TEST(GltfWriter, KeepsTheOpacityOfVertices) {
  annDocument document;
  auto mesh = std::make_shared<annMesh>();
  mesh->vertices->points = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
  mesh->vertices->colours = {{1, 0, 0, 0.25F}, {0, 1, 0, 1}, {0, 0, 1, 0}};
  mesh->corners = {0, 1, 2, 2, 1, 0};
  mesh->materials.push_back({"paint", {1, 1, 0, 1}});
  mesh->face_materials = {annMesh::no_material, 0};
  document.root.add_child("a").body.mesh = mesh;
  TemporaryDirectory directory;
  for (const char* with_materials : {"1", "0"}) {
    Messages messages;
    ASSERT_EQ(binary_writer.write(document, directory / "a.glb", messages, {{"WRITE_MATERIALS", with_materials}}),
              velabsDONE);
    const Reading reading = reader.read(directory / "a.glb", {{"WELD_POINTS", "0"}});
    ASSERT_EQ(reading.result, velabsDONE) << reading.messages.errors;
    const annMesh& again = reading.mesh();
    EXPECT_EQ(again.vertices->colours, mesh->vertices->colours);
    const bool has_materials = *with_materials == '1';
    EXPECT_EQ(again.materials, has_materials ? mesh->materials : std::vector<annMaterial>());
    EXPECT_EQ(again.face_materials, has_materials ? mesh->face_materials : Corners());
  }
}

TEST(GltfWriter, SharesWhatIsSharedAndCountsInSmallNumbers) {
  TemporaryDirectory directory;
  Messages messages;
  ASSERT_EQ(text_writer.write(assembly(), directory / "a.gltf", messages,
                              {{"WRITE_MATERIALS", "0"}, {"WRITE_NORMALS", "0"}, {"WRITE_VERTEX_COLOURS", "0"}}),
            velabsDONE);
  const Json json = Json::parse(TemporaryDirectory::read(directory / "a.gltf"));
  EXPECT_EQ(json["meshes"].size(), 2u);
  EXPECT_EQ(json["accessors"].size(), 4u);
  EXPECT_EQ(json["accessors"][1]["componentType"], 5123);
  EXPECT_EQ(json["accessors"][0]["max"], Json::parse("[2,1,0.125]"));
  EXPECT_FALSE(json.contains("materials"));

  annDocument large;
  auto mesh = std::make_shared<annMesh>();
  mesh->vertices->points.resize(65536);
  mesh->corners = {0, 1, 65535};
  large.root.body.mesh = mesh;
  ASSERT_EQ(binary_writer.write(large, directory / "a.glb", messages), velabsDONE);
  EXPECT_EQ(reader.read(directory / "a.glb", {{"WELD_POINTS", "0"}}).mesh().corners, mesh->corners);
}

TEST(GltfWriter, SaysWhyItCannotWrite) {
  TemporaryDirectory directory;
  Messages messages;
  EXPECT_EQ(binary_writer.write({}, directory / "a.glb", messages), velabsFAILED);
  EXPECT_NE(messages.errors.find("no shape"), std::string::npos);
  EXPECT_EQ(binary_writer.write(assembly(), directory / "a.glb", messages, {{"SCALE", "1e40"}}), velabsFAILED);
  EXPECT_NE(messages.errors.find("\"red\": a coordinate is too large"), std::string::npos) << messages.errors;
}

TEST(Gltf, StopsWhenCancelled) {
  TemporaryDirectory directory;
  annDocument document;
  auto mesh = std::make_shared<annMesh>();
  mesh->vertices->points.resize(500000);
  mesh->corners.resize(300000);
  document.root.add_child("a").body.mesh = mesh;
  Messages messages;
  ASSERT_EQ(binary_writer.write(document, directory / "a.glb", messages), velabsDONE);
  EXPECT_EQ(reader.read(directory / "a.glb", {}, true).result, velabsCANCELLED);
  messages.cancel = true;
  EXPECT_EQ(binary_writer.write(document, directory / "b.glb", messages), velabsCANCELLED);
  EXPECT_FALSE(std::filesystem::exists(directory / "b.glb"));
}

}  // namespace
