#pragma once

#include <cstddef>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "Boxes.h"
#include "Running.h"
#include "TemporaryDirectory.h"

// Programs that are not ours. Tests hold what `vel` writes against them, because our own readers share our own
// mistakes.
namespace judges {

// The full name of a program on the search path; empty where it is not installed.
std::string program(const std::string& name);

// The Khronos validator as `.ci/run` installs it; empty where it or node is missing.
std::string gltf_validator();

// One report of the validator for each file, in order.
nlohmann::json validate_gltf(const std::vector<std::string>& files);

// Built with the tests where lib3mf is installed; else empty.
std::string lib3mf();

// What lib3mf_judge prints about a file; "error" alone when lib3mf refuses it.
nlohmann::json read_by_lib3mf(const std::string& file);

// What a program finds in a file of triangles or polygons.
struct Mesh {
  std::size_t faces = 0;
  std::size_t open = 0;  // faces with an edge that no other face shares; by admesh only
  annBox box;
};

// Nothing when admesh refuses the file.
std::optional<Mesh> read_by_admesh(const std::string& stl);
Mesh read_by_gmsh(const std::string& stl);
// Faces keep their corners.
Mesh read_by_assimp(const std::string& file);

// Writes all meshes of a file to a binary STL where its nodes place them; false when assimp refuses it.
bool place_by_assimp(const std::string& file, const std::string& stl);

// True when gmsh reads a STEP, IGES or BREP file as volumes whose boundaries are all of its surfaces.
bool is_closed_by_gmsh(const std::string& file);

}  // namespace judges

// The `vel` of the build, with an application data directory of its own.
class Vel {
 public:
  Outcome run(std::vector<std::string> words) const;
  Outcome translate(const std::string& input, const std::string& output, std::vector<std::string> options = {}) const;
  // What `vel info --json` says, with the box in millimetres; null when it fails.
  nlohmann::json info(const std::string& file) const;

 private:
  TemporaryDirectory home_;
};

// The box of a `vel info`.
annBox box_of(const nlohmann::json& info);
