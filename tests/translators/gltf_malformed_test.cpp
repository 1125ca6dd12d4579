#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

#include "GltfFile.h"

namespace {

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
    must_not_read(file.glb(), c.message);
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
  File repeated;  // one long name at many nodes
  repeated.json["meshes"][0]["name"] = std::string(std::size_t{1} << 20, 'n');
  repeated.json["nodes"] = Json(300, {{"mesh", 0}});
  repeated.json["scenes"][0]["nodes"] = Json::array();
  for (int i = 0; i < 300; ++i) repeated.json["scenes"][0]["nodes"].push_back(i);
  const std::string deep(100000, '[');
  const std::pair<std::string, const char*> cases[] = {
      {glb(file.json, file.binary, 1), "version 1 of GLB"},
      {changed(8, 1U << 31), "says that it has 2147483648 bytes"},
      {changed(12, 0xFFFFFFF0U), "byte 12: a chunk of 4294967280 bytes"},
      {changed(12, 6), "no multiple of 4"},
      {changed(16, 7), "the first chunk is not JSON"},
      {infinite.glb(), "accessors[0]: element 1 is not of finite numbers"},
      {restart.glb(), "index 65535 at 2 is no number of a vertex"},
      {repeated.glb(), "the names of the meshes at all nodes exceed"},
      {"{\"asset\":{\"version\":\"2.0\"},\"extras\":" + deep, "byte 235: the JSON is nested"},
      {"{\"asset\":{\"version\":\"2.0\"},nodes:[]}", "byte 28: this is no valid JSON"},
      {"{\"asset\":{\"version\":\"2.0\"}", "byte 26: the JSON ends too early"},
      {"{\"asset\":{\"version\":\"2.0\"},\"x\":1e999}", "no valid JSON"},
      {"[]", "no object"}};
  for (const auto& [content, message] : cases) must_not_read(content, message);
  EXPECT_NE(must_read(whole + "tail").messages.warnings.find("4 bytes behind"), std::string::npos);
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
  reader.must_not_read(text, "a link that leads elsewhere");
  std::filesystem::remove(directory / "sub/sub/a b.bin");
  directory.write("sub/sub/a b.bin", file.binary);
  reader.must_read(text);
}

}  // namespace
