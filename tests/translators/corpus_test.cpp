#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <sstream>

#include "TemporaryDirectory.h"
#include "Translator.h"

// Real files of others, below the directory that VEL_CORPUS names; without it there is nothing to do.

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> files(const char* extension, bool malformed) {
  std::vector<fs::path> result;
  const char* root = std::getenv("VEL_CORPUS");
  if (!root) return result;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    const bool broken = entry.path().parent_path().filename() == "malformed";
    if (broken == malformed && entry.is_regular_file() && entry.path().extension() == extension) {
      result.push_back(entry.path());
    }
  }
  std::sort(result.begin(), result.end());
  return result;
}

// Lines that begin with a word, counted without understanding the file.
std::size_t lines_of(const std::string& bytes, const char* wanted) {
  std::size_t count = 0;
  std::istringstream lines(bytes);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string word;
    count += words >> word && utString(word).case_compare(wanted);
  }
  return count;
}

std::size_t stl_triangles(const std::string& bytes) {
  std::uint32_t count = 0;
  if (bytes.size() >= 84) std::memcpy(&count, bytes.data() + 80, 4);
  const std::size_t size = 84 + std::size_t{50} * count;
  return bytes.size() == size || bytes.size() == size + 1 ? count : lines_of(bytes, "facet");
}

// What must survive: the corners that triangles use, their box, and how many there are.
struct Shape {
  std::size_t triangles = 0;
  annBox box{{1e300, 1e300, 1e300}, {-1e300, -1e300, -1e300}};
};

Shape shape_of(const annDocument& document) {
  Shape shape;
  for (const annPlacedBody& body : ann_placed_bodies(document)) {
    const annMesh& mesh = *body.node->body.mesh;
    shape.triangles += mesh.triangle_count();
    for (std::uint32_t corner : mesh.corners) {
      const annVector p = body.placement.point(mesh.vertices->points.at(corner));
      shape.box.min = {std::min(shape.box.min.x, p.x), std::min(shape.box.min.y, p.y), std::min(shape.box.min.z, p.z)};
      shape.box.max = {std::max(shape.box.max.x, p.x), std::max(shape.box.max.y, p.y), std::max(shape.box.max.z, p.z)};
    }
  }
  return shape;
}

void expect_same(const Shape& a, const Shape& b, double precision, const std::string& where) {
  EXPECT_EQ(a.triangles, b.triangles) << where;
  const double one[] = {a.box.min.x, a.box.min.y, a.box.min.z, a.box.max.x, a.box.max.y, a.box.max.z};
  const double two[] = {b.box.min.x, b.box.min.y, b.box.min.z, b.box.max.x, b.box.max.y, b.box.max.z};
  for (int i = 0; i < 6; ++i) EXPECT_NEAR(one[i], two[i], precision * std::fabs(one[i])) << where;
}

class Corpus : public testing::Test {
 protected:
  void SetUp() override {
    if (!std::getenv("VEL_CORPUS")) GTEST_SKIP() << "VEL_CORPUS names no directory";
  }

  // To both formats and back.
  void translate(const Reading& original, const std::string& name) {
    const Shape shape = shape_of(original.document);
    const struct {
      const Translator& writer;
      const Translator& reader;
      const char* file;
      const char* form;
    } ways[] = {{stl_writer, stl_reader, "x.stl", "binary"},
                {stl_writer, stl_reader, "y.stl", "ascii"},
                {obj_writer, obj_reader, "z.obj", "ascii"}};
    for (const auto& way : ways) {
      const std::string where = name + " to " + way.file;
      Messages messages;
      ASSERT_EQ(way.writer.write(original.document, directory / way.file, messages, {{"FILE_FORMAT", way.form}}),
                velabsDONE)
          << where << messages.errors;
      const Reading again = way.reader.read(directory / way.file);
      if (original.statistics().vertices == 0 && again.result != velabsDONE) continue;
      ASSERT_EQ(again.result, velabsDONE) << where << again.messages.errors;
      expect_same(shape, shape_of(again.document), way.form == std::string("binary") ? 1e-7 : 0, where);
      if (way.file == std::string("z.obj")) {
        EXPECT_EQ(again.statistics().faces, original.statistics().faces) << where;
        EXPECT_EQ(again.statistics().vertices, original.statistics().vertices) << where;
      }
    }
  }

  TemporaryDirectory directory;
  const Translator stl_reader{"stlreader"}, stl_writer{"stlwriter"}, obj_reader{"objreader"}, obj_writer{"objwriter"};
};

TEST_F(Corpus, EveryStlFileIsReadWholeAndTranslated) {
  for (const fs::path& file : files(".stl", false)) {
    const Reading reading = stl_reader.read(file.string());
    ASSERT_EQ(reading.result, velabsDONE) << file << reading.messages.errors;
    EXPECT_EQ(reading.statistics().triangles, stl_triangles(TemporaryDirectory::read(file.string()))) << file;
    translate(reading, file.filename().string());
  }
}

TEST_F(Corpus, EveryObjFileIsReadWholeAndTranslated) {
  for (const fs::path& file : files(".obj", false)) {
    const Reading reading = obj_reader.read(file.string());
    ASSERT_EQ(reading.result, velabsDONE) << file << reading.messages.errors;
    const std::string bytes = TemporaryDirectory::read(file.string());
    EXPECT_EQ(reading.statistics().vertices, lines_of(bytes, "v")) << file;
    EXPECT_EQ(reading.statistics().faces, lines_of(bytes, "f")) << file;
    if (reading.statistics().faces > 0) translate(reading, file.filename().string());
  }
}

TEST_F(Corpus, BrokenFilesGiveAReasonOrTheirGeometry) {
  const std::pair<const Translator&, const char*> ways[] = {
      {stl_reader, ".stl"}, {obj_reader, ".obj"}, {obj_reader, ".ply"}, {stl_reader, ".ply"},
      {stl_reader, ""},     {obj_reader, ".glb"}, {stl_reader, ".3mf"}};
  for (const auto& [reader, extension] : ways) {
    for (const fs::path& file : files(extension, true)) {
      const Reading reading = reader.read(file.string());
      EXPECT_FALSE(reading.fault()) << file;
      EXPECT_TRUE(reading.result != velabsDONE || reading.statistics().triangles > 0) << file;
    }
  }
}

}  // namespace
