#include "Sources.h"

#include "../translators/Corpus.h"

namespace {

bool is_closed_by_admesh(const std::string& stl) {
  const std::optional<judges::Mesh> mesh = judges::read_by_admesh(stl);
  return mesh && mesh->open == 0;
}

}  // namespace

bool Source::is_closed() const {
  if (is_exact()) return !judges::program("gmsh").empty() && judges::is_closed_by_gmsh(path);
  if (judges::program("admesh").empty()) return false;
  if (format == "stl") return is_closed_by_admesh(path);
  const TemporaryDirectory directory;
  const std::string stl = directory / "placed.stl";
  return !judges::program("assimp").empty() && judges::place_by_assimp(path, stl) && is_closed_by_admesh(stl);
}

std::vector<Source> foreign_sources() {
  const std::string examples = VEL_EXAMPLES;
  std::vector<Source> sources{
      {examples + "/bracket.stl", "stl"}, {examples + "/bracket.obj", "obj"}, {examples + "/assembly.step", "step"}};
  for (const CorpusFile& file : corpus_files()) {
    if (file.folder != "malformed") sources.push_back({file.path.string(), file.folder});
  }
  return sources;
}
