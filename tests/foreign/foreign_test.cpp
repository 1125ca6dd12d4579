#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <set>
#include <sstream>

#include "../translators/Corpus.h"
#include "Judges.h"

using nlohmann::json;

// What `vel` writes of every source, read by programs that are not ours.

namespace {

#define VEL_NEEDS(name, program) \
  if ((program).empty()) GTEST_SKIP() << name " is not installed (VEL_FOREIGN=1 ./check installs it)"

// admesh refuses files of fewer triangles.
constexpr int admesh_needs = 4;

// A file that foreign programs see in other formats.
struct Source {
  std::string path;
  std::string format;  // "stl", "step"

  bool is_exact() const { return format == "step" || format == "iges" || format == "brep"; }
};

bool is_closed_by_admesh(const std::string& stl) {
  const std::optional<judges::Mesh> mesh = judges::read_by_admesh(stl);
  return mesh && mesh->open == 0;
}

// False where there is no program to ask, too.
bool is_closed(const Source& source) {
  if (source.is_exact()) return !judges::program("gmsh").empty() && judges::is_closed_by_gmsh(source.path);
  if (judges::program("admesh").empty()) return false;
  if (source.format == "stl") return is_closed_by_admesh(source.path);
  const TemporaryDirectory directory;
  const std::string stl = directory / "placed.stl";
  return !judges::program("assimp").empty() && judges::place_by_assimp(source.path, stl) && is_closed_by_admesh(stl);
}

// The examples and all whole files of the corpus that `vel` reads.
std::vector<Source> foreign_sources() {
  const std::string examples = VEL_EXAMPLES;
  std::vector<Source> sources{
      {examples + "/bracket.stl", "stl"}, {examples + "/bracket.obj", "obj"}, {examples + "/assembly.step", "step"}};
  for (const CorpusFile& file : corpus_files()) {
    if (file.folder != "malformed") sources.push_back({file.path.string(), file.folder});
  }
  return sources;
}

class Foreign : public testing::Test {
 protected:
  // Writes a source in another format and gives the file; empty when the source holds nothing for that format, and then
  // there must be no file.
  std::string written(const Source& source, const std::string& extension) {
    const std::string file = directory_ / (std::to_string(++files_) + "/a." + extension);
    std::filesystem::create_directories(std::filesystem::path(file).parent_path());
    const Outcome outcome = vel_.translate(source.path, file);
    if (outcome.code == 0) return file;
    const json info = vel_.info(source.path);
    EXPECT_TRUE(info.is_null() || info["faces"] == 0) << source.path << " to " << extension << ": " << outcome.err;
    EXPECT_FALSE(std::filesystem::exists(file)) << source.path << " to " << extension;
    return {};
  }

  // Writes every source with faces, and calls `check` with what `vel` finds in the source and with the file.
  void for_each_written(const std::string& extension,
                        const std::function<void(const Source&, const json& before, const std::string& file)>& check) {
    for (const Source& source : foreign_sources()) {
      const json before = vel_.info(source.path);
      const std::string file = written(source, extension);
      if (!file.empty() && has_faces(before)) check(source, before, file);
    }
  }

  static bool has_faces(const json& info) { return !info.is_null() && info["faces"] != 0; }

  // assimp leaves out faces of OFF with more than nine corners and cuts numbers of ten digits.
  static bool assimp_reads_all(const std::string& file, const std::string& format, const json& info) {
    if (size_of(box_of(info)) > 1e9) return false;
    if (format != "off") return true;
    std::istringstream text(TemporaryDirectory::read(file));
    std::string line;
    std::size_t points = 0, faces = 0, corners = 0;
    std::getline(text, line);
    text >> points >> faces;
    for (std::size_t i = 0; i <= points; ++i) std::getline(text, line);
    while (std::getline(text, line)) {
      if (std::istringstream(line) >> corners && corners > 9) return false;
    }
    return true;
  }

  // What a program found in a mesh file, against what `vel` finds in it and against the box of its source.
  void expect_same_mesh(const judges::Mesh& found, const std::string& file, const annBox& before, bool is_exact,
                        const std::string& where) {
    const json info = vel_.info(file);
    ASSERT_TRUE(has_faces(info)) << where;
    EXPECT_EQ(found.faces, info["faces"]) << where;
    const annBox box = box_of(info);
    expect_same_box(found.box, box, size_of(box) * 1e-6 + 1e-5, where);
    // Facets are inside of the curved faces of an exact shape.
    expect_same_box(found.box, before, size_of(before) * (is_exact ? 0.02 : 1e-6) + 1e-5, where);
  }

  Vel vel_;
  TemporaryDirectory directory_;
  int files_ = 0;
};

TEST_F(Foreign, EveryGltfIsValid) {
  VEL_NEEDS("the Khronos glTF validator", judges::gltf_validator());
  std::vector<std::string> files, names;
  for (const Source& source : foreign_sources()) {
    for (const char* format : {"glb", "gltf"}) {
      const std::string file = written(source, format);
      if (file.empty()) continue;
      files.push_back(file);
      names.push_back(source.path + " to " + format);
    }
  }
  const json reports = judges::validate_gltf(files);
  ASSERT_EQ(reports.size(), files.size());
  for (std::size_t i = 0; i < files.size(); ++i) {
    ASSERT_FALSE(reports[i].contains("failure")) << names[i] << reports[i];
    const json& issues = reports[i]["issues"];
    EXPECT_EQ(issues["numErrors"], 0) << names[i] << issues;
    EXPECT_EQ(issues["numWarnings"], 0) << names[i] << issues;
  }
}

TEST_F(Foreign, EveryThreemfIsValidAndClosedWhereItsSourceIs) {
  VEL_NEEDS("lib3mf", judges::lib3mf());
  for_each_written("3mf", [&](const Source& source, const json& before, const std::string& file) {
    // lib3mf takes no coordinates above 1e9.
    if (size_of(box_of(before)) > 1e9) return;
    const json report = judges::read_by_lib3mf(file), info = vel_.info(file);
    ASSERT_FALSE(report.contains("error") || info.is_null()) << source.path << report << info;
    EXPECT_TRUE(report["warnings"].empty()) << source.path << report["warnings"];
    EXPECT_EQ(report["triangles"], info["triangles"]) << source.path;
    // The groups of an OBJ file may be closed together and open one by one.
    const bool closed = (source.is_exact() || report["manifold"].size() == 1) && is_closed(source);
    for (const json& manifold : report["manifold"]) EXPECT_TRUE(manifold || !closed) << source.path;
  });
}

TEST_F(Foreign, EveryStlIsInMillimetresAndClosedWhereItsSourceIs) {
  VEL_NEEDS("admesh", judges::program("admesh"));
  VEL_NEEDS("gmsh", judges::program("gmsh"));
  for_each_written("stl", [&](const Source& source, const json& before, const std::string& file) {
    annBox box = box_of(before);
    if (source.format == "gltf") box = {{box.min.x, -box.max.z, box.min.y}, {box.max.x, -box.min.z, box.max.y}};
    // gmsh joins triangles in one place, so its count says nothing; it cuts numbers of ten digits.
    const double size = size_of(box);
    if (size > 1e9) return;
    expect_same_box(judges::read_by_gmsh(file).box, box, size * (source.is_exact() ? 0.02 : 1e-6) + 1e-5,
                    source.path + " in gmsh");
    const std::optional<judges::Mesh> mesh = judges::read_by_admesh(file);
    if (!mesh) {
      EXPECT_LT(vel_.info(file)["triangles"], admesh_needs) << source.path;
      return;
    }
    expect_same_mesh(*mesh, file, box, source.is_exact(), source.path + " in admesh");
    EXPECT_TRUE(mesh->open == 0 || !is_closed(source)) << source.path << ": " << mesh->open;
  });
}

TEST_F(Foreign, EveryObjPlyAndOffIsInMillimetres) {
  VEL_NEEDS("assimp", judges::program("assimp"));
  for (const std::string format : {"obj", "ply", "off"}) {
    for_each_written(format, [&](const Source& source, const json& before, const std::string& file) {
      if (!assimp_reads_all(file, format, before)) return;
      expect_same_mesh(judges::read_by_assimp(file), file, box_of(before), source.is_exact(),
                       source.path + " to " + format);
    });
  }
}

// Models of formats with +Z up are turned; others are kept.
TEST_F(Foreign, EveryGlbIsInMetresWithYUp) {
  VEL_NEEDS("assimp", judges::program("assimp"));
  VEL_NEEDS("admesh", judges::program("admesh"));
  const std::set<std::string> z_up{"step", "iges", "brep", "3mf", "stl"};
  const std::string stl = directory_ / "placed.stl";
  for_each_written("glb", [&](const Source& source, const json& before, const std::string& glb) {
    ASSERT_TRUE(judges::place_by_assimp(glb, stl)) << source.path;
    const json info = vel_.info(glb);
    ASSERT_FALSE(info.is_null()) << source.path;
    const std::optional<judges::Mesh> mesh = judges::read_by_admesh(stl);
    if (!mesh) {
      EXPECT_LT(info["triangles"], admesh_needs) << source.path;
      return;
    }
    EXPECT_EQ(mesh->faces, info["triangles"]) << source.path;
    annBox box = box_of(before);
    for (annVector* corner : {&box.min, &box.max}) *corner = {corner->x / 1e3, corner->y / 1e3, corner->z / 1e3};
    if (z_up.contains(source.format)) box = {{box.min.x, box.min.z, -box.max.y}, {box.max.x, box.max.z, -box.min.y}};
    expect_same_box(mesh->box, box, size_of(box) * (source.is_exact() ? 0.02 : 1e-5) + 1e-6, source.path);
  });
}

// Each shape once: a cube with hard edges has three vertices at each of its points.
TEST_F(Foreign, GltfHasANormalForEachCorner) {
  VEL_NEEDS("the Khronos glTF validator", judges::gltf_validator());
  const struct {
    const char *file, *format;
    int vertices;  // 0 for any number
  } cases[] = {{"obj/cube_normals.obj", "obj", 24}, {"step/knob_metre.step", "step", 0}};
  for (const auto& c : cases) {
    const std::string file = written({std::string(VEL_TEST_DATA "/") + c.file, c.format}, "glb");
    const json info = judges::validate_gltf({file})[0]["info"];
    EXPECT_EQ(info["maxAttributes"], 2) << c.file << info;
    EXPECT_TRUE(c.vertices == 0 || vel_.info(file)["vertices"] == c.vertices) << c.file << info;
  }
}

}  // namespace
