#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <set>
#include <tuple>

#include "Boxes.h"
#include "Corpus.h"
#include "Formats.h"
#include "Solids.h"
#include "TemporaryDirectory.h"
#include "Translator.h"
#include "annTriangulation.h"

// The files of tests/data, and with VEL_CORPUS real files of others.

namespace {

// What is counted once, however often it stands in the model.
struct Distinct {
  std::size_t triangles = 0, faces = 0, vertices = 0;
};

Distinct distinct(const annDocument& document) {
  Distinct result;
  std::set<const void*> seen;
  for (const annPlacedBody& body : ann_placed_bodies(document)) {
    const annMesh* mesh = body.node->body.mesh.get();
    if (!seen.insert(mesh).second) continue;
    result.triangles += mesh->triangle_count();
    result.faces += mesh->face_count();
    if (seen.insert(mesh->vertices.get()).second) result.vertices += mesh->vertices->points.size();
  }
  return result;
}

using Colour = std::tuple<long, long, long, long>;

using Colours = std::map<Colour, std::size_t>;

Colours opaque(const Colours& colours) {
  Colours result;
  for (const auto& [colour, count] : colours) {
    Colour without = colour;
    std::get<3>(without) = 255;
    result[without] += count;
  }
  return result;
}

Colour in_bytes(const annColour& c) {
  auto byte = [](float value) { return std::lround(value * 255); };
  return {byte(c.red), byte(c.green), byte(c.blue), byte(c.opacity)};
}

// What must survive, whatever the form: the corners that faces use, how long their unit is and which axis is up.
struct Shape {
  std::size_t faces = 0, triangles = 0;
  double metres = 1;
  annUpAxis up = annUP_UNKNOWN;
  annBox box{{1e300, 1e300, 1e300}, {-1e300, -1e300, -1e300}};
  std::vector<std::string> parts;
  // Corners of each; those of faces where vertices have none, which would stand in their place.
  Colours colours, vertex_colours;
};

Shape shape_of(const annDocument& document, bool objects_of_3mf = false) {
  Shape shape;
  shape.metres = vel_metres(document.unit);
  shape.up = document.up;
  for (const annPlacedBody& body : ann_placed_bodies(document)) {
    const annMesh& mesh = *body.node->body.mesh;
    const auto& points = mesh.vertices->points;
    const std::size_t triangles_before = shape.triangles;
    shape.faces += mesh.face_count();
    ann_for_each_triangle(mesh, [&](std::size_t face, std::uint32_t a, std::uint32_t b, std::uint32_t c) {
      const bool collapsed = points[a] == points[b] || points[b] == points[c] || points[c] == points[a];
      if (collapsed && objects_of_3mf) return;
      ++shape.triangles;
      std::optional<annColour> colour = face_colour(mesh, face, body.colour);
      if (!colour && objects_of_3mf && !mesh.face_materials.empty()) colour = annColour{1, 1, 1, 1};
      if (colour && mesh.vertices->colours.empty()) shape.colours[in_bytes(*colour)] += 3;
      for (std::uint32_t corner : {a, b, c}) {
        shape.box.include(body.placement.point(points.at(corner)));
        if (!mesh.vertices->colours.empty()) ++shape.vertex_colours[in_bytes(mesh.vertices->colours[corner])];
      }
    });
    if (shape.triangles > triangles_before) shape.parts.push_back(body.node->label().str());
  }
  return shape;
}

Colours together(const Shape& shape) {
  Colours result = shape.colours;
  for (const auto& [colour, count] : shape.vertex_colours) result[colour] += count;
  return result;
}

double greatest_coordinate(const annBox& box) {
  double greatest = 0;
  for (const double value : {box.min.x, box.min.y, box.min.z, box.max.x, box.max.y, box.max.z}) {
    greatest = std::max(greatest, std::fabs(value));
  }
  return greatest;
}

class Corpus : public testing::Test {
 protected:
  // The whole files of the mesh formats that are installed.
  static std::vector<CorpusFile> whole_files() {
    std::vector<CorpusFile> files = corpus_files();
    EXPECT_GT(files.size(), has_big_corpus() ? 120U : 40U);
    std::erase_if(files, [](const CorpusFile& file) {
      const std::set<std::string> meshes{"stl", "obj", "ply", "off", "gltf", "3mf"};
      return !meshes.contains(file.folder) || !is_installed(file.folder + "reader");
    });
    return files;
  }

  static Reading read(const CorpusFile& file) { return translator(file.folder + "reader").read(file.path.string()); }

  TemporaryDirectory directory_;
};

TEST_F(Corpus, EveryWholeFileHasWhatCountingFound) {
  for (const CorpusFile& file : whole_files()) {
    const std::string where = file.path.string();
    const Reading reading = read(file);
    EXPECT_FALSE(reading.fault()) << where;
    const bool no_mesh = file.facts.find("(x y)") != std::string::npos || file.facts.find("(a b") != std::string::npos;
    EXPECT_EQ(reading.result, no_mesh ? velabsFAILED : velabsDONE) << where << reading.messages.errors;
    if (reading.result != velabsDONE) continue;
    const Distinct counts = distinct(reading.document);
    EXPECT_EQ(counts.triangles, file.triangles().value_or(counts.triangles)) << where;
    EXPECT_EQ(counts.faces, file.faces().value_or(counts.faces)) << where;
    EXPECT_EQ(counts.vertices, file.vertices().value_or(counts.vertices)) << where;
    if (file.box()) {
      ASSERT_TRUE(reading.statistics().box) << where;
      // The page rounds to six digits.
      expect_same_box(*reading.statistics().box, *file.box(), 1e-5 * greatest_coordinate(*file.box()), where);
    }
  }
}

// A file in one format, written in another and read again.
void expect_kept(const Shape& before, const annDocument& document, const CorpusFile& source, const Format& to,
                 const Shape& after) {
  const std::string where = source.path.filename().string() + " to " + to.name;
  EXPECT_EQ(before.triangles, after.triangles) << where;
  EXPECT_TRUE(!to.polygons || before.faces == after.faces) << where << after.faces;
  const double factor = after.metres / before.metres;
  const annBox box = turned(before.box, ann_turn(before.up, after.up));
  const double precision = std::max(to.precision, factor == 1 ? 0 : 1e-13);
  expect_same_box(after.box * factor, box, precision * greatest_coordinate(box), where);
  const bool named = to.parts && document.root.children.size() == before.parts.size() &&
                     std::find(before.parts.begin(), before.parts.end(), "") == before.parts.end();
  EXPECT_TRUE(!named || before.parts == after.parts) << where;
  // A format that holds one look for a face says it of the face or of its corners.
  const bool either = to.colours && !to.vertex_colours;
  EXPECT_TRUE(!either || together(before) == together(after)) << where;
  EXPECT_TRUE(!to.colours || either || before.colours == after.colours) << where;
  const Colours wanted = to.vertex_opacity ? before.vertex_colours : opaque(before.vertex_colours);
  EXPECT_TRUE(!to.vertex_colours || wanted == after.vertex_colours) << where;
}

TEST_F(Corpus, EveryPairOfFormatsKeepsWhatBothCarry) {
  std::size_t pairs = 0, files = 0;
  for (const CorpusFile& file : whole_files()) {
    const Reading reading = read(file);
    if (reading.result != velabsDONE || ann_placed_bodies(reading.document).empty()) continue;
    ++files;
    for (const Format& to : vel_mesh_formats) {
      if (!is_installed(to.reader)) continue;
      const Shape before = shape_of(reading.document, to.objects_of_3mf);
      const velabsResult expected = before.triangles > 0 || to.vertices_alone ? velabsDONE : velabsFAILED;
      const std::string where = file.path.filename().string() + " to " + to.name;
      const std::string one = directory_ / to.file, two = directory_ / (std::string("again_") + to.file);
      Messages messages;
      ASSERT_EQ(translator(to.writer).write(reading.document, one, messages, {{"FILE_FORMAT", to.form}}), expected)
          << where << messages.errors;
      if (expected != velabsDONE) continue;
      translator(to.writer).must_write(reading.document, two, {{"FILE_FORMAT", to.form}});
      if (to.name != std::string("OBJ") && to.name != std::string("glTF")) {  // these name their companions
        EXPECT_TRUE(TemporaryDirectory::read(one) == TemporaryDirectory::read(two))
            << where << " differs when repeated";
      }
      if (before.triangles == 0) continue;  // lines or points alone
      const Reading back = translator(to.reader).must_read(one);
      expect_kept(before, reading.document, file, to, shape_of(back.document));
      if (!HasFailure()) ++pairs;
    }
  }
  std::printf("vel: %zu translations of %zu real files kept what both formats carry\n", pairs, files);
}

TEST_F(Corpus, NothingIsLostOnTheWayThroughHpf) {
  const Translator& hpf_reader = translator("hpfreader");
  const Translator& hpf_writer = translator("hpfwriter");
  for (const CorpusFile& file : whole_files()) {
    const Reading reading = read(file);
    if (reading.result != velabsDONE || ann_placed_bodies(reading.document).empty()) continue;
    const std::string where = file.path.string();
    SCOPED_TRACE(where);
    const std::string first = directory_ / "first.hpf", second = directory_ / "second.hpf";
    hpf_writer.must_write(reading.document, first);
    const Reading kept = hpf_reader.must_read(first);
    hpf_writer.must_write(kept.document, second);
    EXPECT_TRUE(TemporaryDirectory::read(first) == TemporaryDirectory::read(second)) << where;

    // The document itself and the one that was kept give the same file of the format that it came from.
    const std::string writer = file.folder == "gltf" ? "glbwriter" : file.folder + "writer";
    if (writer == "glbwriter" && shape_of(reading.document).triangles == 0) continue;  // glTF holds faces only
    const std::string direct = directory_ / ("direct/x." + file.folder), late = directory_ / ("late/x." + file.folder);
    for (const std::string& target : {direct, late}) {
      std::filesystem::create_directories(std::filesystem::path(target).parent_path());
      translator(writer).must_write(target == direct ? reading.document : kept.document, target);
    }
    EXPECT_TRUE(TemporaryDirectory::read(direct) == TemporaryDirectory::read(late)) << where;
  }
}

TEST_F(Corpus, EveryReaderGivesAReasonOrGeometryForBrokenFiles) {
  std::set<std::string> readers;
  for (const Format& format : vel_mesh_formats) {
    if (is_installed(format.reader)) readers.insert(format.reader);
  }
  for (const CorpusFile& file : corpus_files()) {
    if (file.folder != "malformed") continue;
    for (const std::string& reader : readers) {
      const Reading reading = translator(reader).read(file.path.string());
      EXPECT_FALSE(reading.fault()) << file.path << reader;
      // A file of blank lines is a whole OBJ file, whose emptiness the engine reports.
      const bool blank = TemporaryDirectory::read(file.path.string()).find_first_not_of(" \r\n") == std::string::npos;
      EXPECT_TRUE(reading.result != velabsDONE || reading.statistics().vertices > 0 || blank) << file.path << reader;
    }
  }
}

}  // namespace
