#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "annMaterial.h"
#include "vltOnce.h"

// The materials that a file names and the companion files that define them. Names are numbered as they come up, because
// the definition may come later than the use.
class objMaterials {
 public:
  // `file` is the OBJ file: companions are looked for in its directory and nowhere else.
  objMaterials(const utString& file, vltOnce& findings, const velabsOutput& output);

  // The statement "mtllib": one name, or several when no file has the whole as its name. A file named again is not read
  // again, the OBJ file itself is none, and behind a thousand names no more are looked for. False once the work is
  // cancelled.
  bool load(std::string_view names, std::size_t line);

  // The number of the material that "usemtl" names.
  std::uint32_t number_of(std::string_view name, std::size_t line);

  // The material behind a number; one that no companion defines is grey. A warning counts those under the first's name.
  const annMaterial& use(std::uint32_t number);

 private:
  struct Material {
    annMaterial look;
    std::size_t first_line = 0;
    bool defined = false;
    bool missing_told = false;
    bool opacity_by_d = false;
  };

  bool load_file(std::string_view name, std::size_t line);
  bool find_and_read(std::string_view name);
  void read(std::string_view text);
  void statement(std::string_view line, Material*& current);
  void diffuse(std::string_view rest, Material& material);
  void opacity(std::string_view keyword, std::string_view rest, Material& material);
  Material& material(std::string_view name);

  std::string directory_;
  vltOnce& findings_;
  const velabsOutput& output_;
  std::unordered_map<std::string, bool> tried_;  // names as they stand in the file, and whether they led to a file
  std::unordered_set<std::string> paths_read_;
  std::string own_path_;
  std::string undefined_;  // what is said of undefined materials
  std::vector<Material> materials_;
  std::unordered_map<std::string, std::uint32_t> numbers_;
};
