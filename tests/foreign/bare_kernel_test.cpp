#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "../translators/Corpus.h"
#include "../translators/Solids.h"
#include "../translators/Translator.h"
#include "TemporaryDirectory.h"
#include "annVertexSplitting.h"

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

class BareKernel : public testing::Test {
 protected:
  // The document in each format and unit measures the same; a BREP file states no unit, so its numbers are in that.
  void expect_kept(const annDocument& document, const Measured& source, const std::string& where) {
    std::vector<std::string> files, names;
    for (const char* format : formats) {
      for (const Unit& unit : units) {
        files.push_back(directory_ / (std::to_string(files.size()) + "." + format));
        names.push_back(where + " to " + format + " in " + unit.name);
        translator(format + std::string("writer"))
            .must_write(document, files.back(), {{"LENGTH_UNIT", unit.name}, {"FILE_FORMAT", "ascii"}});
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
    const Reading reading =
        format == "brep" ? reader.must_read(file, {{"LENGTH_UNIT", "millimetre"}}) : reader.must_read(file);
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
  std::vector<std::shared_ptr<const annMesh>> meshes{with_face_normals(*cube(0.01))};
  ann_split_vertices(meshes);
  annDocument document = document_of(meshes[0]);
  document.unit = velLENGTH_METRE;
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
