#include "Corpus.h"

#include <cstdlib>
#include <fstream>
#include <regex>

namespace {

std::vector<std::string> cells_of(const std::string& row) {
  std::vector<std::string> cells;
  for (std::size_t begin = 1, end; (end = row.find(" |", begin)) != row.npos; begin = end + 2) {
    cells.push_back(row.substr(begin + 1, end - begin - 1));
  }
  return cells;
}

std::optional<std::size_t> first_number(const std::string& text, const std::string& pattern) {
  std::smatch match;
  if (!std::regex_search(text, match, std::regex(pattern))) return std::nullopt;
  return std::stoull(match[1]);
}

}  // namespace

std::optional<std::size_t> CorpusFile::number_behind(const std::string& word) const {
  return first_number(facts, "(?:^|[ (])" + word + " (\\d+)");
}

std::optional<std::size_t> CorpusFile::number_before(const std::string& word) const {
  return first_number(facts, "(\\d+) " + word);
}

template <typename Weight>
std::optional<std::size_t> CorpusFile::sum_of_sizes(Weight weight) const {
  const std::size_t begin = facts.find("face sizes {");
  if (begin == facts.npos) return std::nullopt;
  const std::string sizes = facts.substr(begin, facts.find('}', begin) - begin);
  const std::regex pair("(\\d+): (\\d+)");
  std::size_t sum = 0;
  for (auto at = std::sregex_iterator(sizes.begin(), sizes.end(), pair); at != std::sregex_iterator(); ++at) {
    sum += weight(std::stoull((*at)[1])) * std::stoull((*at)[2]);
  }
  return sum;
}

std::optional<std::size_t> CorpusFile::triangles() const {
  if (folder == "stl") return facts.starts_with("ascii") ? number_before("facets") : number_before("triangles");
  if (folder == "obj") return number_behind("fan triangles");
  if (folder == "gltf") return first_number(facts, "not instanced\\) (\\d+)");
  if (folder == "3mf") return number_behind("triangles");
  return sum_of_sizes([](std::size_t size) { return size - 2; });
}

std::optional<std::size_t> CorpusFile::faces() const {
  if (folder == "obj" || folder == "off") return number_behind("f");
  if (folder == "ply") return number_behind("face");
  return std::nullopt;
}

std::optional<std::size_t> CorpusFile::vertices() const {
  if (folder == "obj" || folder == "off") return number_behind("v");
  if (folder == "ply") return number_behind("vertex");
  if (folder == "3mf") return number_behind("vertices");
  return std::nullopt;
}

std::optional<annBox> CorpusFile::box() const {
  const std::string number = "([-+.e\\d]+)", three = "\\[" + number + " " + number + " " + number + "\\]";
  std::smatch match;
  if (!std::regex_search(facts, match, std::regex("bbox " + three + "\\.\\." + three))) return std::nullopt;
  auto at = [&](std::size_t i) { return std::stod(match[i]); };
  return annBox{{at(1), at(2), at(3)}, {at(4), at(5), at(6)}};
}

std::vector<CorpusFile> corpus_files() {
  std::vector<CorpusFile> files;
  const char* const roots[] = {VEL_TEST_DATA, std::getenv("VEL_CORPUS")};
  for (const char* root : roots) {
    if (!root) continue;
    std::ifstream page(std::filesystem::path(root) / "SOURCES.md");
    std::string folder;
    for (std::string line; std::getline(page, line);) {
      if (line.starts_with("## ")) folder = line.substr(3, line.find(' ', 3) - 3);
      if (!line.starts_with("| `")) continue;
      const std::vector<std::string> cells = cells_of(line);
      if (cells.size() < 4) continue;
      const std::string name = cells[0].substr(1, cells[0].size() - 2);
      files.push_back({std::filesystem::path(root) / folder / name, folder, cells[3]});
    }
  }
  return files;
}

bool has_big_corpus() {
  return std::getenv("VEL_CORPUS") != nullptr;
}
