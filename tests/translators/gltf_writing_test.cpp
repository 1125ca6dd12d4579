#include <gtest/gtest.h>

#include <filesystem>

#include "GltfFile.h"
#include "Solids.h"

namespace {

// An assembly: a quad and a triangle, the triangle in glass, shown in the colour of each of two parts and once without.
annDocument assembly() {
  annDocument document;
  document.unit = velLENGTH_MILLIMETRE;
  document.up = annUP_Z;
  const auto mesh =
      mesh_of({{0, 0, 0}, {2000, 0, 0}, {2000, 1000, 0}, {0, 1000, 0}, {0, 0, 125}}, {{0, 1, 2, 3}, {0, 1, 4}});
  mesh->vertices->normals.assign(5, {0, 0.6, 0.8});
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

Json written_json(const annDocument& document, const TemporaryDirectory& directory, Options options = {}) {
  text_writer.must_write(document, directory / "a.gltf", options);
  return Json::parse(TemporaryDirectory::read(directory / "a.gltf"));
}

TEST(GltfWriter, WritesWhatItReads) {
  TemporaryDirectory directory;
  const std::tuple<const Translator&, const char*, const char*> ways[] = {
      {binary_writer, "a.glb", "0"}, {text_writer, "b c.gltf", "0"}, {text_writer, "d.gltf", "1"}};
  for (const auto& [writer, name, embed] : ways) {
    const Messages messages = writer.must_write(assembly(), directory / name, {{"EMBED_BUFFERS", embed}});
    EXPECT_NE(messages.notes.find("triangles only"), std::string::npos);
    EXPECT_NE(messages.notes.find("without faces"), std::string::npos);
    const Reading reading = reader.must_read(directory / name, {{"WELD_POINTS", "0"}});

    // The node that turns the model is none of its own.
    EXPECT_EQ(reading.document.up, annUP_Z);
    EXPECT_EQ(reading.document.root.children.size(), 3U);
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
    EXPECT_EQ(reading.mesh(1).face_materials, (Corners{annMesh::no_material, annMesh::no_material, 0}));
    const auto& colours = reading.mesh(1).vertices->colours;
    for (std::size_t i = 0; i < 5; ++i) EXPECT_NEAR(colours.at(i).red * 255, static_cast<double>(i), 1e-4);
    EXPECT_NEAR(colours.at(0).green, 0.7, 1e-6);
    EXPECT_TRUE(reading.node(2).body.empty());

    // What was read is written as it stood.
    binary_writer.must_write(reading.document, directory / "again.glb");
    EXPECT_EQ(TemporaryDirectory::read(directory / "again.glb"), TemporaryDirectory::read(directory / "a.glb")) << name;
  }
  EXPECT_TRUE(std::filesystem::exists(directory / "b c.bin"));
  EXPECT_FALSE(std::filesystem::exists(directory / "d.bin"));
}

TEST(GltfWriter, ShowsOpenBodiesFromBothSides) {
  annDocument document;
  auto red_of = [](std::shared_ptr<annMesh> mesh) {
    mesh->materials = {{"red", {1, 0, 0, 1}}};
    mesh->face_materials.assign(mesh->face_count(), 0);
    return mesh;
  };
  const std::pair<const char*, std::shared_ptr<annMesh>> bodies[] = {
      {"closed", red_of(cube(1))},
      {"open", red_of(cube(1, true))},
      {"bare open", cube(1, true)},
      {"closed by position", red_of(with_face_normals(*cube(1)))}};
  for (const auto& [name, mesh] : bodies) document.root.add_child(name).body.mesh = mesh;
  document.root.add_child("blue").body.mesh = bodies[2].second;
  document.root.children.back()->colour = annColour{0, 0, 1, 1};

  TemporaryDirectory directory;
  const Json json = written_json(document, directory);
  std::string seen;
  for (const Json& mesh : json["meshes"]) {
    const Json& material = json["materials"][mesh["primitives"][0].at("material").get<std::size_t>()];
    seen += material.value("name", "-") + (material.value("doubleSided", false) ? " both, " : " one, ");
  }
  EXPECT_EQ(seen, "red one, red both, - both, red one, - both, ");
  EXPECT_EQ(json["materials"].size(), 4U);

  // That both sides are seen changes nothing that is read.
  const Reading reading = reader.must_read(directory / "a.gltf");
  for (std::size_t i : {0, 1, 3}) EXPECT_EQ(reading.mesh(i).materials, bodies[0].second->materials);
  EXPECT_TRUE(reading.mesh(2).materials.empty() && reading.mesh(2).face_materials.empty());
  EXPECT_EQ(reading.mesh(4).materials, (std::vector<annMaterial>{{{}, {0, 0, 1, 1}}}));
  EXPECT_EQ(written_json(reading.document, directory)["materials"], json["materials"]);
}

TEST(GltfWriter, NamesNodesByInstancesAndMeshesByParts) {
  const struct {
    std::vector<std::array<const char*, 2>> names;  // of part and instance, of nodes with one mesh
    const char *nodes, *mesh;
    std::vector<std::array<const char*, 2>> again = {};  // where others are read than were written
  } cases[] = {{{{"nut", "nut_1"}, {"nut", "nut_2"}}, "nut_1 nut_2 ", "nut"},
               {{{"nut", ""}}, "nut ", "nut"},
               {{{"nut", "nut"}}, "nut ", "nut", {{"nut", ""}}},
               {{{"", "nut_1"}}, "nut_1 ", "", {{"nut_1", ""}}},
               {{{"left", ""}, {"right", ""}}, "left right ", ""},
               {{{"", ""}}, " ", ""}};
  TemporaryDirectory directory;
  for (const auto& c : cases) {
    annDocument document;
    const auto mesh = cube(1);
    for (const auto& [name, instance] : c.names) {
      annNode& node = document.root.add_child(name);
      node.instance_name = instance;
      node.body.mesh = mesh;
    }
    const Json json = written_json(document, directory);
    std::string nodes;
    for (const Json& node : json["nodes"]) nodes += node.value("name", "") + " ";
    EXPECT_EQ(nodes, c.nodes);
    EXPECT_EQ(json["meshes"][0].value("name", ""), c.mesh) << c.nodes;
    const Reading reading = reader.read(directory / "a.gltf");
    const auto& expected = c.again.empty() ? c.names : c.again;
    for (std::size_t i = 0; i < expected.size(); ++i) {
      EXPECT_EQ(reading.node(i).name.str(), expected[i][0]) << c.nodes;
      EXPECT_EQ(reading.node(i).instance_name.str(), expected[i][1]) << c.nodes;
    }
  }
  annDocument assembly;
  annNode& top = assembly.root.add_child("rod-assembly");
  top.instance_name = "rod_1";
  top.add_child("rod").body.mesh = cube(1);
  const Messages messages = text_writer.must_write(assembly, directory / "a.gltf");
  EXPECT_NE(messages.notes.find("names an assembly once"), std::string::npos) << messages.notes;
}

TEST(GltfWriter, KeepsTheOpacityOfVertices) {
  const auto mesh = mesh_of({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 2}, {2, 1, 0}});
  mesh->vertices->colours = {{1, 0, 0, 0.25F}, {0, 1, 0, 1}, {0, 0, 1, 0}};
  mesh->materials.push_back({"paint", {1, 1, 0, 1}});
  mesh->face_materials = {annMesh::no_material, 0};
  TemporaryDirectory directory;
  for (const char* with_materials : {"1", "0"}) {
    const Messages messages =
        binary_writer.must_write(document_of(mesh), directory / "a.glb", {{"WRITE_MATERIALS", with_materials}});
    const Reading reading = reader.must_read(directory / "a.glb", {{"WELD_POINTS", "0"}});
    const annMesh& again = reading.mesh();
    EXPECT_EQ(again.vertices->colours, mesh->vertices->colours);
    const bool has_materials = *with_materials == '1';
    // White, as a viewer multiplies the two.
    const std::vector<annMaterial> white{{"paint", {1, 1, 1, 1}}};
    EXPECT_EQ(again.materials, has_materials ? white : std::vector<annMaterial>());
    EXPECT_EQ(messages.notes.find("the material's is left out") != std::string::npos, has_materials);
    EXPECT_EQ(again.face_materials, has_materials ? mesh->face_materials : Corners());
  }
}

TEST(GltfWriter, SharesWhatIsSharedAndCountsInSmallNumbers) {
  TemporaryDirectory directory;
  const Json json = written_json(assembly(), directory,
                                 {{"WRITE_MATERIALS", "0"}, {"WRITE_NORMALS", "0"}, {"WRITE_VERTEX_COLOURS", "0"}});
  EXPECT_EQ(json["meshes"].size(), 2u);
  EXPECT_EQ(json["accessors"].size(), 4u);
  EXPECT_EQ(json["accessors"][1]["componentType"], 5123);
  EXPECT_EQ(json["accessors"][0]["max"], Json::parse("[2,1,0.125]"));
  EXPECT_FALSE(json.contains("materials"));

  const auto large = mesh_of(std::vector<annVector>(65536), {{0, 1, 65535}});
  binary_writer.must_write(document_of(large), directory / "a.glb");
  EXPECT_EQ(reader.read(directory / "a.glb", {{"WELD_POINTS", "0"}}).mesh().corners, large->corners);
}

TEST(GltfWriter, SaysWhichPartIsTooLarge) {
  const TemporaryDirectory directory;
  binary_writer.must_not_write(assembly(), directory / "a.glb", "\"red\": a coordinate is too large",
                               {{"SCALE", "1e40"}});
}

}  // namespace
