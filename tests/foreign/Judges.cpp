#include "Judges.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <regex>
#include <sstream>

using nlohmann::json;

namespace {

Outcome run(std::vector<std::string> words) {
  return Running(words, {"PATH=" + std::string(std::getenv("PATH")), "HOME=/nonexistent"}, "/tmp").finish();
}

// The number that the first group of `pattern` matches.
double number(const std::string& text, const std::string& pattern) {
  std::smatch match;
  if (!std::regex_search(text, match, std::regex(pattern))) throw std::runtime_error("no " + pattern + " in: " + text);
  return std::stod(match[1]);
}

// What gmsh prints when it has run a script.
std::string run_by_gmsh(const std::string& script) {
  const TemporaryDirectory directory;
  return run({judges::program("gmsh"), directory.write("script.geo", script), "-0", "-v", "3"}).out;
}

}  // namespace

std::string judges::program(const std::string& name) {
  std::istringstream path(std::getenv("PATH"));
  for (std::string directory; std::getline(path, directory, ':');) {
    std::string file = directory + "/" + name;
    if (access(file.c_str(), X_OK) == 0) return file;
  }
  return {};
}

std::string judges::gltf_validator() {
  const std::string directory = VEL_FOREIGN_DIR "/node_modules/gltf-validator";
  return std::filesystem::exists(directory) && !program("node").empty() ? directory : "";
}

json judges::validate_gltf(const std::vector<std::string>& files) {
  std::vector<std::string> words{program("node"), VEL_FOREIGN_SOURCE_DIR "/gltf_judge.js", gltf_validator()};
  words.insert(words.end(), files.begin(), files.end());
  const Outcome outcome = run(words);
  if (outcome.code != 0) throw std::runtime_error(outcome.err);
  return json::parse(outcome.out);
}

std::string judges::lib3mf() {
  return VEL_LIB3MF_JUDGE;
}

json judges::read_by_lib3mf(const std::string& file) {
  return json::parse(run({lib3mf(), file}).out);
}

std::optional<judges::Mesh> judges::read_by_admesh(const std::string& stl) {
  const std::string out = run({program("admesh"), "--exact", stl}).out;
  if (out.find("Number of facets") == out.npos) return std::nullopt;
  const auto at = [&](const char* name) { return number(out, std::string(name) + " = +([-+.e\\d]+)"); };
  Mesh mesh;
  mesh.faces = static_cast<std::size_t>(number(out, "Number of facets +: +(\\d+)"));
  mesh.open = static_cast<std::size_t>(number(out, "Total disconnected facets +: +(\\d+)"));
  mesh.box = {{at("Min X"), at("Min Y"), at("Min Z")}, {at("Max X"), at("Max Y"), at("Max Z")}};
  return mesh;
}

judges::Mesh judges::read_by_gmsh(const std::string& stl) {
  const std::string out = run_by_gmsh("Merge \"" + stl +
                                      "\";\n"
                                      "Printf(\"triangles %g\", Mesh.NbTriangles);\n"
                                      "Printf(\"x %.17g\", General.MinX);\nPrintf(\"X %.17g\", General.MaxX);\n"
                                      "Printf(\"y %.17g\", General.MinY);\nPrintf(\"Y %.17g\", General.MaxY);\n"
                                      "Printf(\"z %.17g\", General.MinZ);\nPrintf(\"Z %.17g\", General.MaxZ);\n"
                                      "Exit;\n");
  const auto at = [&](const char* name) { return number(out, "\n" + std::string(name) + " ([-+.e\\d]+)"); };
  Mesh mesh;
  mesh.faces = static_cast<std::size_t>(number(out, "triangles ([.e+\\d]+)"));
  mesh.box = {{at("x"), at("y"), at("z")}, {at("X"), at("Y"), at("Z")}};
  return mesh;
}

judges::Mesh judges::read_by_assimp(const std::string& file) {
  const std::string out = run({program("assimp"), "info", file, "--raw"}).out;
  const std::string value = "([-.\\d]+)", three = " point +\\(" + value + " " + value + " " + value + "\\)";
  const auto corner = [&](const std::string& name) -> annVector {
    std::smatch match;
    if (!std::regex_search(out, match, std::regex(name + three))) throw std::runtime_error(file + ": " + out);
    return {std::stod(match[1]), std::stod(match[2]), std::stod(match[3])};
  };
  Mesh mesh;
  mesh.faces = static_cast<std::size_t>(number(out, "\nFaces: +(\\d+)"));
  mesh.box = {corner("Minimum"), corner("Maximum")};
  return mesh;
}

bool judges::place_by_assimp(const std::string& file, const std::string& stl) {
  return run({program("assimp"), "export", file, stl, "-fstlb", "-ptv"}).code == 0 && std::filesystem::exists(stl);
}

bool judges::is_closed_by_gmsh(const std::string& file) {
  const std::string out = run_by_gmsh("SetFactory(\"OpenCASCADE\");\nMerge \"" + file +
                                      "\";\n"
                                      "v() = Volume{:};\ns() = Surface{:};\nb() = {};\n"
                                      "If(#v())\n  b() = Abs(Boundary{ Volume{v()}; });\n  b() = Unique(b());\nEndIf\n"
                                      "Printf(\"surfaces %g, of volumes %g\", #s(), #b());\nExit;\n");
  std::smatch match;
  if (!std::regex_search(out, match, std::regex("surfaces (\\d+), of volumes (\\d+)"))) return false;
  return match[1] == match[2];
}

Outcome Vel::run(std::vector<std::string> words) const {
  words.insert(words.begin(), VEL_PROGRAM);
  return Running(words, {"QRM_HOME=" + home_.path().string(), "HOME=" + home_.path().string(), "PATH=/usr/bin:/bin"},
                 home_.path().string())
      .finish();
}

Outcome Vel::translate(const std::string& input, const std::string& output, std::vector<std::string> options) const {
  std::vector<std::string> words{"translate", input, "-o", output};
  words.insert(words.end(), options.begin(), options.end());
  return run(std::move(words));
}

json Vel::info(const std::string& file) const {
  const Outcome outcome = run({"info", "--json", "--unit", "millimetre", file});
  return outcome.code == 0 ? json::parse(outcome.out) : json();
}

annBox box_of(const json& info) {
  const json& box = info["bounding_box"];
  const auto corner = [&](const char* name) -> annVector { return {box[name][0], box[name][1], box[name][2]}; };
  return {corner("min"), corner("max")};
}
