#include <algorithm>
#include <regex>
#include <thread>

#include "ExactFiles.h"
#include "annDefinitions.h"

// What is kept when a document becomes a file of exact shapes and is read again.
using Exact = ExactFiles;

TEST_F(Exact, AnAssemblyKeepsWhatItIsMadeOfThroughStep) {
  const Reading source = reader("step").must_read(example);
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
      const auto a = facets_of(left[i].node->body), b = facets_of(right[i].node->body);
      EXPECT_EQ(a->materials, b->materials);
      EXPECT_EQ(closedness_of(*b).open_edges, 0U);
      EXPECT_NEAR(closedness_of(*b).volume * 25.4 * 25.4 * 25.4, closedness_of(*a).volume,
                  1e-3 * closedness_of(*a).volume);
    }
  }
}

TEST_F(Exact, SurfacesAndColoursStayWhatTheyAreThroughIgesAndBrep) {
  const Reading iges = through(reader("step").read(example).document, "iges");
  const Reading brep = through(iges.document, "brep", {{"FILE_FORMAT", "binary"}});
  through(brep.document, "step");
  EXPECT_NE(TemporaryDirectory::read(path("through.step")).find("CYLINDRICAL_SURFACE"), std::string::npos);
  const auto placed = ann_placed_bodies(iges.document);
  EXPECT_TRUE(std::any_of(placed.begin(), placed.end(), [](const auto& body) { return body.colour.has_value(); }));
}

// The bolt of the example has a cone of 45 degrees.
TEST_F(Exact, StepStatesTheUnitsThatAreAskedFor) {
  const Reading source = reader("step").read(example);
  const auto half_angle = [&] {
    const std::string text = TemporaryDirectory::read(path("through.step")),
                      cone = text.substr(text.find("CONICAL_SURFACE"));
    return std::stod(cone.substr(cone.substr(0, cone.find(';')).rfind(',') + 1));
  };
  const std::pair<const char*, double> angles[] = {
      {"radian", 0.785398163397}, {"degree", 45}, {"gradian", 50}, {"turn", 0.125}};
  for (const auto& [unit, angle] : angles) {
    const Reading again = through(source.document, "step", {{"ANGULAR_UNIT", unit}, {"LENGTH_UNIT", "yard"}});
    EXPECT_EQ(again.document.unit, velLENGTH_YARD);
    expect_box(again.statistics(), source.statistics(), 1 / 914.4);
    EXPECT_NEAR(half_angle(), angle, 1e-9 * angle) << unit;
    const std::string text = TemporaryDirectory::read(path("through.step"));
    EXPECT_EQ(text.find("PCURVE") != std::string::npos, std::string(unit) == "radian");
    EXPECT_EQ(text.find("FOOT"), std::string::npos);
    EXPECT_EQ(through(again.document, "step").statistics().solids, 3U);
    EXPECT_NEAR(half_angle(), 0.785398163397, 1e-9) << unit;
  }
}

TEST_F(Exact, AFileHasTheUnitAndTheUpOfItsFormat) {
  annDocument document = document_of(cube(1));
  document.root.children[0]->transform.m[10] = 3;
  document.unit = velLENGTH_INCH;
  document.up = annUP_Y;
  for (const char* format : {"step", "iges", "brep"}) {
    const Reading reading = through(document, format);
    EXPECT_EQ(reading.document.unit, std::string(format) == "brep" ? velLENGTH_UNSPECIFIED : velLENGTH_INCH);
    EXPECT_EQ(reading.document.up, annUP_Z);
    const double inch = vel_length_ratio(velLENGTH_INCH, reading.document.unit);
    const annBox box = reading.statistics().box.value();
    EXPECT_NEAR(box.min.y, -3 * inch, 1e-5) << format;
    EXPECT_NEAR(box.max.z, inch, 1e-5) << format;
  }
}

TEST_F(Exact, AnAssemblyComesBackFromGlbWithItsAxesAndItsTree) {
  const Reading source = reader("step").read(example);
  writer("glb").must_write(source.document, path("a.glb"));
  const Reading glb = reader("gltf").read(path("a.glb"));
  EXPECT_EQ(glb.document.up, annUP_Z);
  expect_box(glb.statistics(), source.statistics(), 0.001);
  EXPECT_EQ(annDefinitions(glb.document).depth(), annDefinitions(source.document).depth());
  EXPECT_EQ(annDefinitions(glb.document).occurrences(), annDefinitions(source.document).occurrences());
  // Forced to keep its axes, glTF has the numbers of the model.
  writer("glb").must_write(source.document, path("a.glb"), {{"UP_AXIS", "keep"}});
  expect_box(reader("gltf").read(path("a.glb"), {{"UP_AXIS", "keep"}}).statistics(), source.statistics(), 0.001);
}

TEST_F(Exact, TheChordToleranceIsALengthOfTheModel) {
  const auto triangles = [&](const char* scale, velLengthUnit unit, const char* chord) {
    Reading source = reader("step").read(example, {{"SCALE", scale}});
    source.document.unit = unit;
    writer("stl").must_write(source.document, path("a.stl"), {{"CHORD_TOLERANCE", chord}, {"ANGLE_TOLERANCE", "90"}});
    return reader("stl").read(path("a.stl")).statistics().triangles;
  };
  const std::size_t fine = triangles("1", velLENGTH_MILLIMETRE, "0.01"),
                    coarse = triangles("1", velLENGTH_MILLIMETRE, "1");
  EXPECT_GT(fine, coarse);
  // Whatever the unit of the output, but with the scale of the model.
  EXPECT_EQ(triangles("1", velLENGTH_INCH, "0.01"), fine);
  EXPECT_EQ(triangles("100", velLENGTH_MILLIMETRE, "1"), fine);
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
    const std::string first = written(source.document, format);
    EXPECT_TRUE(written(source.document, format) == first) << format;
  }
  apStatus status;
  const auto placed = ann_placed_bodies(source.document);
  const Reading again = reader("step").read(example);
  EXPECT_EQ(placed[0].node->body.shape->save(status),
            ann_placed_bodies(again.document)[0].node->body.shape->save(status));
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

// An edge that has no curve is no fault of a BREP file.
TEST_F(Exact, FacesThatCannotBeWrittenAreSaidToBeLeftOut) {
  const std::string cube_text = written(document_of(cube(10)), "brep"), edge = "Ed\n 1e-07 1 1 0\n";
  const std::size_t curve = cube_text.find(edge) + edge.size();
  std::string one_edge = cube_text;
  one_edge.erase(curve, cube_text.find('\n', curve) + 1 - curve);
  const std::string all_edges = std::regex_replace(cube_text, std::regex(edge + "1 .*\n"), edge);
  const Messages some = writer("step").must_write(read(one_edge, "brep").document, path("some.step"));
  EXPECT_NE(some.warnings.find("2 of its 6 faces cannot be written as STEP"), std::string::npos) << some.warnings;
  writer("step").must_not_write(read(all_edges, "brep").document, path("all.step"),
                                "none of its faces can be written as STEP");
  writer("iges").must_not_write(read(all_edges, "brep").document, path("all.iges"), "it cannot be written");
}

TEST_F(Exact, EachPartGoesToAFileOfItsOwn) {
  const Reading source = reader("step").read(example);
  writer("step").must_write(source.document, path("parts.step"), {{"MULTIPLE_FILES", "file per part"}});
  EXPECT_EQ(reader("step").read(path("parts.step")).statistics().parts, 1U);
  EXPECT_EQ(reader("step").read(path("parts.bolt.step")).statistics().solids, 1U);

  annDocument named = document_of(cube(1));
  const std::string start(99, 'x');
  for (const char* end : {"", "\xC3\xA9"}) named.root.add_child(utString(start + end)).body.mesh = cube(2);
  writer("step").must_write(named, path("named.step"), {{"MULTIPLE_FILES", "file per part"}});
  for (const std::string& name : {start, start + "_2"}) {
    reader("step").must_read(path("named." + name + ".step"));
  }
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
