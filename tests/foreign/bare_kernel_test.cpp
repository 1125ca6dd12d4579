#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>

#include "../translators/Corpus.h"
#include "../translators/Translator.h"
#include "TemporaryDirectory.h"

// What our writers make of exact shapes, measured by a program on the bare kernel: other programs must find the shapes
// of the source again, in every unit.

namespace {

struct Measured {
  int faces = -1, solids = -1, valid = -1;
  double area = 0, volume = 0;
};

// Of each file, in order; without an answer nothing of a file is known.
std::vector<Measured> measured(const std::vector<std::string>& files) {
  std::string command = VEL_BARE_KERNEL_JUDGE;
  for (const std::string& file : files) command += " '" + file + "'";
  std::vector<Measured> result;
  FILE* const answers = popen((command + " 2>&1").c_str(), "r");
  char line[500];
  while (answers && std::fgets(line, sizeof line, answers)) {
    Measured m;
    const int known = std::sscanf(line, "faces %d solids %d area %lf volume %lf valid %d", &m.faces, &m.solids, &m.area,
                                  &m.volume, &m.valid);
    EXPECT_EQ(known, 5) << line;
    result.push_back(m);
  }
  if (answers) pclose(answers);
  result.resize(files.size());
  return result;
}

void expect_near(double actual, double expected, const std::string& where) {
  // Curves of trimmed splines are as close to their surfaces as the kernel's tolerances.
  EXPECT_NEAR(actual, expected, 1e-5 * std::abs(expected)) << where;
}

struct Unit {
  const char* name;
  double millimetres;
};

constexpr Unit units[] = {{"millimetre", 1}, {"inch", 25.4}, {"metre", 1000}};
constexpr const char* formats[] = {"step", "iges", "brep"};

const Translator& translator(const std::string& name) {
  static std::map<std::string, Translator> opened;
  return opened.try_emplace(name, name).first->second;
}

class BareKernel : public testing::Test {
 protected:
  // The document in each format and unit measures the same; a BREP file states no unit, so its numbers are in that.
  void expect_kept(const annDocument& document, const Measured& source, const std::string& where) {
    std::vector<std::string> files, names;
    for (const char* format : formats) {
      for (const Unit& unit : units) {
        files.push_back(directory_ / (std::to_string(files.size()) + "." + format));
        names.push_back(where + " to " + format + " in " + unit.name);
        Messages messages;
        ASSERT_EQ(translator(format + std::string("writer"))
                      .write(document, files.back(), messages, {{"LENGTH_UNIT", unit.name}, {"FILE_FORMAT", "ascii"}}),
                  velabsDONE)
            << names.back() << messages.errors;
      }
    }
    const std::vector<Measured> results = measured(files);
    for (std::size_t i = 0; i < files.size(); ++i) {
      const bool is_brep = i / std::size(units) == 2;
      const double length = is_brep ? units[i % std::size(units)].millimetres : 1;
      EXPECT_EQ(results[i].faces, source.faces) << names[i];
      EXPECT_EQ(results[i].solids, source.solids) << names[i];
      EXPECT_GE(results[i].valid, source.valid) << names[i];
      expect_near(results[i].area * length * length, source.area, names[i]);
      expect_near(results[i].volume * length * length * length, source.volume, names[i]);
    }
  }

  void expect_kept(const std::string& file, const std::string& format) {
    const Translator& reader = translator(format + "reader");
    const Reading reading = format == "brep" ? reader.read(file, {{"LENGTH_UNIT", "millimetre"}}) : reader.read(file);
    ASSERT_EQ(reading.result, velabsDONE) << file << reading.messages.errors;
    expect_kept(reading.document, measured({file})[0], file);
  }

  TemporaryDirectory directory_;
};

class BareKernelCorpus : public BareKernel, public testing::WithParamInterface<const char*> {};

}  // namespace

TEST_F(BareKernel, FindsTheExampleInEveryFormatAndUnit) {
  expect_kept(VEL_EXAMPLES "/assembly.step", "step");
}

// Every face of the cube has four vertices of its own, as in files that have a normal for each vertex.
TEST_F(BareKernel, FindsOneSolidInACubeThatIsSplitByItsNormals) {
  auto mesh = std::make_shared<annMesh>();
  constexpr int faces[6][4] = {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4}, {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}};
  for (const auto& face : faces) {
    std::array<std::uint32_t, 4> corners;
    for (std::size_t i = 0; i < 4; ++i) {
      corners[i] = mesh->vertices->count();
      mesh->vertices->points.push_back({(face[i] & 1) * 0.01, (face[i] >> 1 & 1) * 0.01, (face[i] >> 2) * 0.01});
      mesh->vertices->normals.push_back({0, 0, 1});
    }
    mesh->add_face(corners);
  }
  annDocument document;
  document.unit = velLENGTH_METRE;
  document.root.add_child("cube").body.mesh = mesh;
  expect_kept(document, {6, 1, 1, 600, 1000}, "cube");
}

TEST_P(BareKernelCorpus, FindsEveryFileInEveryFormatAndUnit) {
  if (!std::getenv("VEL_CORPUS")) GTEST_SKIP() << "VEL_CORPUS names no directory";
  std::size_t count = 0;
  for (const CorpusFile& file : corpus_files()) {
    // A finite element model holds no shape, and an assembly of several files none in its first one.
    const bool measurable =
        !file.facts.starts_with("schema AP209") && file.path.parent_path().filename() == file.folder;
    if (file.folder != GetParam() || !measurable) continue;
    expect_kept(file.path.string(), file.folder);
    ++count;
  }
  EXPECT_GT(count, 3U);
}

INSTANTIATE_TEST_SUITE_P(Formats, BareKernelCorpus, testing::ValuesIn(formats),
                         [](const auto& test) { return std::string(test.param); });
