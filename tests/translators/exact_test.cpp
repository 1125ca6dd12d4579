#include <gtest/gtest.h>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <set>
#include <sstream>
#include <thread>

#include "OtherProcess.h"
#include "TemporaryDirectory.h"
#include "Translator.h"
#include "annDefinitions.h"
#include "annTriangulation.h"

namespace {

const Translator& reader(const std::string& format) {
  static std::map<std::string, Translator> readers;
  return readers.try_emplace(format, format + "reader").first->second;
}
const Translator& writer(const std::string& format) {
  static std::map<std::string, Translator> writers;
  return writers.try_emplace(format, format + "writer").first->second;
}

std::string bytes_of(const std::string& file) {
  std::stringstream bytes;
  bytes << std::ifstream(file, std::ios::binary).rdbuf();
  return bytes.str();
}

const std::string example = VEL_EXAMPLES "/assembly.step";

class Exact : public testing::Test {
 protected:
  std::string path(const std::string& name) const { return directory_ / name; }

  // Writes a document and reads it again.
  Reading through(const annDocument& document, const std::string& format, Options out = {}, Options in = {}) {
    const std::string file = path("through." + format);
    Messages messages;
    EXPECT_EQ(writer(format).write(document, file, messages, out), velabsDONE) << messages.errors;
    Reading reading = reader(format).read(file, in);
    EXPECT_EQ(reading.result, velabsDONE) << format << ": " << reading.messages.errors;
    return reading;
  }

  TemporaryDirectory directory_;
};

void expect_box(const annStatistics& statistics, const annStatistics& expected, double factor = 1) {
  ASSERT_TRUE(statistics.box && expected.box);
  const double size = expected.box->max.x - expected.box->min.x;
  auto near = [&](annVector a, annVector b) {
    EXPECT_NEAR(a.x, b.x * factor, 1e-5 * size * factor);
    EXPECT_NEAR(a.y, b.y * factor, 1e-5 * size * factor);
    EXPECT_NEAR(a.z, b.z * factor, 1e-5 * size * factor);
  };
  near(statistics.box->min, expected.box->min);
  near(statistics.box->max, expected.box->max);
}

// Six times the volume inside, and how many edges have not one neighbour on each side.
struct Closedness {
  double volume = 0;
  std::size_t open_edges = 0;
};
Closedness closedness_of(const annMesh& mesh) {
  Closedness result;
  std::map<std::pair<std::uint32_t, std::uint32_t>, int> edges;
  ann_for_each_triangle(mesh, [&](std::size_t, std::uint32_t a, std::uint32_t b, std::uint32_t c) {
    const auto& p = mesh.vertices->points;
    result.volume += ann_dot(p[a], ann_cross(p[b], p[c]));
    for (auto [from, to] : {std::pair(a, b), std::pair(b, c), std::pair(c, a)}) {
      from < to ? ++edges[{from, to}] : --edges[{to, from}];
    }
  });
  for (const auto& [edge, balance] : edges) result.open_edges += balance != 0;
  return result;
}

// A cube of quads, from 0 to `size`; open without its last face.
std::shared_ptr<annMesh> cube(double size, bool open = false) {
  auto mesh = std::make_shared<annMesh>();
  for (int i = 0; i < 8; ++i) {
    mesh->vertices->points.push_back({(i & 1) * size, (i >> 1 & 1) * size, (i >> 2) * size});
  }
  constexpr std::uint32_t faces[6][4] = {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4},
                                         {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}};
  for (const auto& face : faces) mesh->add_face(face);
  mesh->materials = {{"", {1, 0, 0}}};
  mesh->set_face_material(1, 0);
  if (!open) return mesh;
  auto shell = std::make_shared<annMesh>();
  shell->vertices = mesh->vertices;
  for (int i = 0; i < 5; ++i) shell->add_face(faces[i]);
  return shell;
}

annDocument document_of(std::shared_ptr<const annMesh> mesh) {
  annDocument document;
  document.unit = velLENGTH_MILLIMETRE;
  document.root.add_child("cube").body.mesh = std::move(mesh);
  return document;
}

}  // namespace

TEST_F(Exact, AnAssemblyKeepsWhatItIsMadeOfThroughStep) {
  const Reading source = reader("step").read(example);
  ASSERT_EQ(source.result, velabsDONE) << source.messages.errors;
  for (const char* protocol : {"AP203", "AP214", "AP242"}) {
    const Reading again = through(source.document, "step", {{"STEP_AP", protocol}, {"LENGTH_UNIT", "inch"}});
    EXPECT_EQ(again.document.unit, velLENGTH_INCH);
    expect_box(again.statistics(), source.statistics(), 1 / 25.4);
    const annDefinitions before(source.document), after(again.document);
    ASSERT_EQ(after.definitions().size(), before.definitions().size());
    EXPECT_EQ(after.occurrences(), 3U);
    const auto left = ann_placed_bodies(source.document), right = ann_placed_bodies(again.document);
    ASSERT_EQ(right.size(), left.size());
    for (std::size_t i = 0; i < left.size(); ++i) {
      EXPECT_EQ(right[i].node->name, left[i].node->name);
      EXPECT_EQ(right[i].colour, left[i].colour) << left[i].node->name.str();
      EXPECT_EQ(right[i].node->body.shape->content().faces, left[i].node->body.shape->content().faces);
      apStatus status;
      const auto a = left[i].node->body.shape->facets({}, status), b = right[i].node->body.shape->facets({}, status);
      ASSERT_TRUE(a && b);
      EXPECT_EQ(a->materials, b->materials);
      EXPECT_EQ(closedness_of(*b).open_edges, 0U);
      EXPECT_NEAR(closedness_of(*b).volume * 25.4 * 25.4 * 25.4, closedness_of(*a).volume,
                  1e-3 * closedness_of(*a).volume);
    }
  }
}

TEST_F(Exact, SurfacesStayExactThroughAllFormats) {
  const Reading source = reader("step").read(example);
  ASSERT_EQ(source.result, velabsDONE);
  const Reading iges = through(source.document, "iges");
  const Reading brep = through(iges.document, "brep", {{"FILE_FORMAT", "binary"}}, {{"LENGTH_UNIT", "millimetre"}});
  const Reading text = through(brep.document, "brep", {}, {{"LENGTH_UNIT", "millimetre"}});
  const Reading step = through(text.document, "step");
  for (const Reading* reading : {&iges, &brep, &text, &step}) {
    EXPECT_EQ(reading->statistics().solids, source.statistics().solids);
    EXPECT_EQ(reading->statistics().faces, source.statistics().faces);
    expect_box(reading->statistics(), source.statistics());
  }
  EXPECT_NE(bytes_of(path("through.step")).find("CYLINDRICAL_SURFACE"), std::string::npos);
  const auto placed = ann_placed_bodies(iges.document);
  const bool coloured =
      std::any_of(placed.begin(), placed.end(), [](const auto& body) { return body.colour.has_value(); });
  EXPECT_TRUE(coloured);
}

// The bolt of the example has a cone of 45 degrees.
TEST_F(Exact, StepStatesTheUnitsThatAreAskedFor) {
  const Reading source = reader("step").read(example);
  const auto half_angle = [&] {
    const std::string text = bytes_of(path("through.step")), cone = text.substr(text.find("CONICAL_SURFACE"));
    return std::stod(cone.substr(cone.substr(0, cone.find(';')).rfind(',') + 1));
  };
  const std::pair<const char*, double> angles[] = {
      {"radian", 0.785398163397}, {"degree", 45}, {"gradian", 50}, {"turn", 0.125}};
  for (const auto& [unit, angle] : angles) {
    const Reading again = through(source.document, "step", {{"ANGULAR_UNIT", unit}, {"LENGTH_UNIT", "yard"}});
    EXPECT_EQ(again.document.unit, velLENGTH_YARD);
    expect_box(again.statistics(), source.statistics(), 1 / 914.4);
    EXPECT_NEAR(half_angle(), angle, 1e-9 * angle) << unit;
    const std::string text = bytes_of(path("through.step"));
    EXPECT_EQ(text.find("PCURVE") != std::string::npos, std::string(unit) == "radian");
    EXPECT_EQ(text.find("FOOT"), std::string::npos);
    EXPECT_EQ(through(again.document, "step").statistics().solids, 3U);
    EXPECT_NEAR(half_angle(), 0.785398163397, 1e-9) << unit;
  }
}

TEST_F(Exact, AFileWithoutShapesIsSaidToBeOne) {
  const std::string start =
      "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\n"
      "FILE_NAME('','',(''),(''),'','','');\n";
  const std::string end = "ENDSEC;\nDATA;\n#1=CARTESIAN_POINT('',(0.,0.,0.));\nENDSEC;\nEND-ISO-10303-21;\n";
  const std::pair<const char*, const char*> headers[] = {
      {"FILE_SCHEMA(('PLANT_SCHEMA { 1 0 }'));\n", "no solid, shell or face; its schema is \"PLANT_SCHEMA\""},
      {"", "no solid, shell or face; it names no schema"}};
  for (const auto& [schema, reason] : headers) {
    const Reading reading = reader("step").read(directory_.write("empty.step", start + schema + end));
    EXPECT_EQ(reading.result, velabsFAILED);
    EXPECT_NE(reading.messages.errors.find(reason), std::string::npos) << reading.messages.errors;
  }
}

// A plane at right angles to the edges that bound a face on it.
TEST_F(Exact, AFaceThatCannotBeMeshedIsLeftOutOnlyWhenAskedFor) {
  Messages messages;
  ASSERT_EQ(writer("brep").write(document_of(cube(10)), path("cube.brep"), messages, {{"FILE_FORMAT", "ascii"}}),
            velabsDONE);
  std::string text = bytes_of(path("cube.brep"));
  const std::string plane = "1 0 0 0 0 0 -1 -1 0 -0 0 1 0 ", turned = "1 0 0 0 1 0 0 0 1 0 0 0 1 ";
  const std::size_t at = text.find(plane);
  ASSERT_NE(at, std::string::npos);
  text.replace(at, plane.size(), turned);
  const std::string file = directory_.write("gap.brep", text);

  for (const char* format : {"glb", "stl", "viewer"}) {
    Messages refused, allowed;
    const std::string target = path(std::string("gap.") + format);
    EXPECT_EQ(writer(format).write(reader("brep").read(file).document, target, refused), velabsFAILED) << format;
    EXPECT_NE(refused.errors.find("1 of its 6 faces cannot be meshed; to leave them out"), std::string::npos)
        << refused.errors;
    EXPECT_NE(refused.errors.find("allow-gaps=1"), std::string::npos) << refused.errors;
    EXPECT_FALSE(std::filesystem::exists(target));
    const Reading going_on = reader("brep").read(file, {{"ALLOW_GAPS", "1"}});
    EXPECT_EQ(writer(format).write(going_on.document, target, allowed), velabsDONE) << format << allowed.errors;
    EXPECT_NE(allowed.warnings.find("1 of its 6 faces"), std::string::npos) << allowed.warnings;
  }
  EXPECT_EQ(reader("stl").read(path("gap.stl")).statistics().triangles, 10U);
}

// What the kernel prints is dropped, on the threads where a program tells of the work.
TEST_F(Exact, WhatIsSaidWhileTheKernelWorksIsHeard) {
  class Printing : public Messages {
   public:
    void progress(int) override { std::cerr << "going on\n"; }
  };
  const Reading source = reader("step").read(example);
  for (const char* format : {"step", "iges"}) {
    Printing messages;
    testing::internal::CaptureStderr();
    EXPECT_EQ(writer(format).write(source.document, path(std::string("heard.") + format), messages), velabsDONE);
    const std::string printed = testing::internal::GetCapturedStderr();
    EXPECT_NE(printed.find("going on"), std::string::npos) << format;
  }
}

TEST_F(Exact, TheSameInputGivesTheSameBytes) {
  Reading source = reader("step").read(example);
  // Styles of many parts have many orders.
  for (float shade = 0; shade < 1; shade += 0.0625F) {
    annNode& part = source.document.root.add_child("shade");
    part.body.mesh = cube(1 + shade);
    part.colour = {shade, 0, 0};
  }
  for (const char* format : {"step", "iges", "brep"}) {
    Messages messages;
    std::string first;
    for (int i = 0; i < 2; ++i) {
      const std::string file = path(std::string("same.") + format);
      ASSERT_EQ(writer(format).write(source.document, file, messages), velabsDONE);
      if (i == 0) first = bytes_of(file);
      EXPECT_TRUE(bytes_of(file) == first) << format;
    }
  }
  apStatus status;
  const auto placed = ann_placed_bodies(source.document);
  const Reading again = reader("step").read(example);
  EXPECT_EQ(placed[0].node->body.shape->save(status),
            ann_placed_bodies(again.document)[0].node->body.shape->save(status));
}

TEST_F(Exact, MeshesBecomePlanarFaces) {
  const struct {
    bool open;
    std::size_t solids, faces;
  } cases[] = {{false, 1, 6}, {true, 0, 5}};
  for (const char* format : {"step", "iges", "brep"}) {
    for (const auto& it : cases) {
      const Reading reading = through(document_of(cube(10, it.open)), format);
      EXPECT_EQ(reading.statistics().solids, it.solids) << format;
      EXPECT_EQ(reading.statistics().faces, it.faces) << format;
      ASSERT_TRUE(reading.statistics().box);
      EXPECT_NEAR(reading.statistics().box->max.z, 10, 1e-12);
    }
  }
  Messages messages;
  EXPECT_EQ(writer("step").write(document_of(cube(1)), path("limit.step"), messages, {{"FACET_LIMIT", "5"}}),
            velabsFAILED);
  EXPECT_NE(messages.errors.find("facet-limit=6"), std::string::npos) << messages.errors;

  // The limit counts the meshes of all parts, one of two sizes twice.
  annDocument two = document_of(cube(1));
  annNode& larger = two.root.add_child("larger");
  larger.body.mesh = two.root.children.front()->body.mesh;
  larger.transform = annTransform::scaling(2);
  for (const bool same_mesh : {true, false}) {
    if (!same_mesh) larger.body.mesh = cube(3);
    messages = {};
    EXPECT_EQ(writer("step").write(two, path("two.step"), messages, {{"FACET_LIMIT", "11"}}), velabsFAILED);
    EXPECT_NE(messages.errors.find("facet-limit=12"), std::string::npos) << messages.errors;
    EXPECT_EQ(writer("step").write(two, path("two.step"), messages, {{"FACET_LIMIT", "12"}}), velabsDONE);
  }
  messages = {};
  EXPECT_EQ(writer("step").write(document_of(cube(1)), path("exact.step"), messages, {{"REPRESENTATION", "exact"}}),
            velabsFAILED);
}

TEST_F(Exact, MeshesThatHaveNoExactShapeAreSaidToHaveNone) {
  annDocument far = document_of(cube(1));
  far.root.children[0]->transform = {{1, 0, 0, 1e300, 0, 1, 0, 0, 0, 0, 1, 0}};
  const std::pair<annDocument, const char*> cases[] = {{document_of(cube(1e300)), "a coordinate is too large"},
                                                       {document_of(cube(0)), "no face that has an area"},
                                                       {std::move(far), "stands too far away"}};
  for (const auto& [document, reason] : cases) {
    Messages messages;
    EXPECT_EQ(writer("step").write(document, path("none.step"), messages), velabsFAILED);
    EXPECT_NE(messages.errors.find(reason), std::string::npos) << messages.errors;
  }
}

TEST_F(Exact, PartsOfAnAssemblyStandSideBySideInIges) {
  annDocument document = document_of(cube(10));
  annNode& assembly = document.root.add_child("assembly");
  assembly.transform = {{1, 0, 0, 100, 0, 1, 0, 0, 0, 0, 1, 0}};
  const char* const names[] = {"table", "chair", ""};
  const auto loose = cube(10, true);
  for (const char* name : names) {
    annNode& node = assembly.add_child(name);
    node.body.mesh = loose;
    node.transform = {{1, 0, 0, 0, 0, 0, -1, 0, 0, 1, 0, 20.0 * assembly.children.size()}};
  }
  const Reading iges = through(document, "iges");
  const auto placed = ann_placed_bodies(iges.document);
  ASSERT_EQ(placed.size(), 4U);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(placed[i + 1].node->name.str(), names[i]);
  EXPECT_EQ(iges.statistics().faces, 21U);
  expect_box(iges.statistics(), ann_statistics(document));
}

TEST_F(Exact, PlacementsThatScaleAndMirrorChangeTheShapes) {
  annDocument document = document_of(cube(10));
  document.root.children[0]->transform = {{-2, 0, 0, 5, 0, 2, 0, 0, 0, 0, 2, 0}};
  annNode& stretched = document.root.add_child("stretched");
  stretched.body = document.root.children[0]->body;
  stretched.transform = {{1, 0, 0, 100, 0, 3, 0, 0, 0, 0, 1, 0}};
  const annStatistics expected = ann_statistics(document);
  for (const char* format : {"step", "brep"}) {
    const Reading reading = through(document, format);
    expect_box(reading.statistics(), expected);
    EXPECT_EQ(reading.statistics().solids, 2U);
    for (const annPlacedBody& placed : ann_placed_bodies(reading.document)) {
      apStatus status;
      const auto mesh = placed.node->body.shape->facets({}, status);
      ASSERT_TRUE(mesh);
      EXPECT_EQ(closedness_of(*mesh).open_edges, 0U);
      EXPECT_GT(closedness_of(*mesh).volume, 0);
    }
  }
}

TEST_F(Exact, EachPartGoesToAFileOfItsOwn) {
  const Reading source = reader("step").read(example);
  Messages messages;
  ASSERT_EQ(writer("step").write(source.document, path("parts.step"), messages, {{"MULTIPLE_FILES", "file per part"}}),
            velabsDONE);
  EXPECT_EQ(reader("step").read(path("parts.step")).statistics().parts, 1U);
  EXPECT_EQ(reader("step").read(path("parts.bolt.step")).statistics().solids, 1U);
}

TEST_F(Exact, TwoInputsAreReadAtOnce) {
  std::vector<Reading> readings(4);
  {
    const Translator& step = reader("step");
    std::vector<std::jthread> threads;
    for (Reading& reading : readings) threads.emplace_back([&] { reading = step.read(example); });
  }
  for (const Reading& reading : readings) EXPECT_EQ(reading.statistics().solids, 3U) << reading.messages.errors;
}

TEST_F(Exact, StepFilesAreTakenByTheirNumbersAndTellWhatIsLeftOut) {
  const std::string whole = bytes_of(example), file = path("added.step");
  auto with = [&](const std::string& line) {
    std::string added = whole;
    std::ofstream(file, std::ios::binary) << added.insert(added.rfind("ENDSEC;"), line);
    return reader("step").read(file);
  };
  const Reading layered = with("#900000=PRESENTATION_LAYER_ASSIGNMENT('1','#1=\nit''s no entity; #2=',(#10));\n");
  EXPECT_EQ(layered.result, velabsDONE) << layered.messages.errors;
  EXPECT_NE(layered.messages.notes.find("layers are left out"), std::string::npos) << layered.messages.notes;
  const Reading twice = with("/* #900000=; */ #10=CARTESIAN_POINT('',(0.,0.,0.));\n");
  EXPECT_EQ(twice.result, velabsFAILED);
  EXPECT_NE(twice.messages.errors.find("#10 for the second time"), std::string::npos) << twice.messages.errors;
}

TEST_F(Exact, BrokenFilesGiveAReasonAndNothingElse) {
  const Reading source = reader("step").read(example);
  Messages messages;
  for (const std::string format : {"step", "iges", "brep"}) {
    const std::string file = path("whole." + format);
    ASSERT_EQ(writer(format).write(source.document, file, messages), velabsDONE) << format << messages.errors;
  }
  for (const std::string format : {"step", "iges", "brep"}) {
    const std::string whole_file = path("whole." + format), cut_file = path("cut." + format);
    const std::string whole = bytes_of(whole_file);
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    for (std::size_t tenth = 1; tenth < 10; ++tenth) {
      std::ofstream(cut_file, std::ios::binary) << whole.substr(0, whole.size() * tenth / 10);
      const Reading reading = reader(format).read(cut_file);
      EXPECT_EQ(reading.result, velabsFAILED) << format << ' ' << tenth;
      EXPECT_FALSE(reading.fault()) << format << ' ' << tenth;
    }
    const auto bad = bad_ends(40, 20, [&](std::size_t i) {
      std::string damaged = whole;
      damaged[(i * 7919 + 400) * 31 % damaged.size()] ^= static_cast<char>(1 + i % 15);
      std::ofstream(cut_file, std::ios::binary) << damaged;
      const Reading reading = reader(format).read(cut_file);
      if (reading.fault()) return OtherResult::BAD;
      // A kernel that broke down is used no more in one process.
      const bool over = reading.messages.errors.find("broke down") != std::string::npos;
      return over ? OtherResult::GOOD_FOR_THE_LAST_TIME : OtherResult::GOOD;
    });
    EXPECT_TRUE(bad.empty()) << format << ' ' << testing::PrintToString(bad);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "") << format;
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << format;
    EXPECT_EQ(reader(format).read(whole_file, {}, true).result, velabsCANCELLED) << format;
  }
}
