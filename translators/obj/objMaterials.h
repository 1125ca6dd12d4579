#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "annMaterial.h"
#include "vltOnce.h"

// The materials that a file uses and the sidecar files that define them. Names are numbered in the order of first use,
// because a definition may come after the use.
class objMaterials {
 public:
  // `file` is the OBJ file: sidecar files are only read from its directory.
  objMaterials(const utString& file, vltOnce& findings, const velabsOutput& output);

  // The statement "mtllib": one name, or several if no file has the whole text as its name. A file is read once, the
  // OBJ file itself is never read as a material file, and after a thousand names the rest are ignored. False when the
  // work is cancelled.
  bool load(std::string_view names, std::size_t line);

  // The number of the material that "usemtl" names.
  std::uint32_t number_of(std::string_view name, std::size_t line);

  // The material with this number; an undefined one is grey. Undefined ones are counted in one warning with the first
  // name.
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
  std::unordered_map<std::string, bool> tried_;  // names in the file, and whether a file was found
  std::unordered_set<std::string> paths_read_;
  std::string own_path_;
  std::string undefined_;  // the warning about undefined materials
  std::vector<Material> materials_;
  std::unordered_map<std::string, std::uint32_t> numbers_;
};
