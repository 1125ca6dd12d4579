#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <numbers>
#include <regex>
#include <set>

#include "Corpus.h"
#include "OtherProcess.h"
#include "TemporaryDirectory.h"
#include "Translator.h"
#include "annDefinitions.h"

// The files of exact shapes of tests/data, and with VEL_CORPUS real files of others.

namespace {

// Facets are this part of the size away from the shape at most.
constexpr double chord_of_size = 0.02;

const Translator& translator(const std::string& library) {
  static std::map<std::string, Translator> opened;
  return opened.try_emplace(library, library).first->second;
}

// What a document describes, each part once.
struct Content {
  std::size_t solids = 0, faces = 0, occurrences = 0;
  std::multiset<std::string> names;
};

Content content_of(const annDocument& document) {
  Content content;
  const annDefinitions definitions(document);
  content.occurrences = definitions.occurrences();
  for (const annDefinitions::Definition& definition : definitions.definitions()) {
    content.names.insert(definition.node->name.str());
    if (!definition.node->body.shape) continue;
    content.solids += definition.node->body.shape->content().solids;
    content.faces += definition.node->body.shape->content().faces;
  }
  return content;
}

std::size_t entities(const CorpusFile& file, const std::string& type) {
  std::smatch match;
  return std::regex_search(file.facts, match, std::regex("[{ ]" + type + ":(\\d+)")) ? std::stoull(match[1]) : 0;
}

// Keywords of a STEP file and of those beside it that it names.
std::size_t keywords(const std::filesystem::path& directory, const std::string& keyword) {
  std::size_t count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(directory)) {
    const std::string text = TemporaryDirectory::read(entry.path().string());
    const std::regex pattern("= *" + keyword + " *\\(");
    count += static_cast<std::size_t>(std::distance(std::sregex_iterator(text.begin(), text.end(), pattern), {}));
  }
  return count;
}

// What counting found, in the terms of the format; IGES files have no products to count.
Content counted(const CorpusFile& file) {
  if (file.folder == "iges") return {entities(file, "186"), entities(file, "144") + entities(file, "510"), 0, {}};
  if (file.folder == "brep") return {file.number_behind("So").value(), file.number_behind("Fa").value(), 0, {}};
  if (file.facts.find("split over") != std::string::npos || file.path.parent_path().filename() != "step") {
    // The page counts the first file of an assembly of many.
    const auto directory = file.path.parent_path();
    return {keywords(directory, "MANIFOLD_SOLID_BREP"),
            keywords(directory, "ADVANCED_FACE"),
            keywords(directory, "NEXT_ASSEMBLY_USAGE_OCCURRENCE"),
            {}};
  }
  return {file.number_behind("solids").value(),
          file.number_behind("faces").value(),
          file.number_behind("occurrences").value(),
          {}};
}

velLengthUnit unit_of(const CorpusFile& file) {
  if (file.folder == "brep") return velLENGTH_UNSPECIFIED;
  std::smatch match;
  const std::regex pattern("unit (?:flag \\d+ )?(INCH|MM|MILLI ?METRE|METRE|M)\\b");
  if (!std::regex_search(file.facts, match, pattern)) return velLENGTH_UNSPECIFIED;
  if (match[1] == "INCH") return velLENGTH_INCH;
  return match[1] == "M" || match[1] == "METRE" ? velLENGTH_METRE : velLENGTH_MILLIMETRE;
}

double size_of(const annBox& box) {
  const annVector diagonal = box.max - box.min;
  return std::sqrt(ann_dot(diagonal, diagonal));
}

// A part where it stands, with the colours that it shows.
struct Part {
  std::string name;
  std::size_t triangles = 0;
  std::set<long> colours;  // each once, as 0xRRGGBB; -1 for none
};

long number_of(const std::optional<annColour>& colour) {
  if (!colour) return -1;
  auto byte = [](float part) { return std::lround(part * 255); };
  return byte(colour->red) << 16 | byte(colour->green) << 8 | byte(colour->blue);
}

// Exact shapes are followed as closely as the tolerance says.
std::vector<Part> parts_of(const annDocument& document, const annTolerance& tolerance) {
  std::vector<Part> parts;
  for (const annPlacedBody& placed : ann_placed_bodies(document)) {
    const annBody& body = placed.node->body;
    apStatus status;
    const std::shared_ptr<const annMesh> mesh = body.mesh ? body.mesh : body.shape->facets(tolerance, status);
    EXPECT_TRUE(mesh) << status.failure().str();
    if (!mesh) continue;
    std::set<long> colours;
    for (std::size_t face = 0; face < mesh->face_count(); ++face) {
      const std::uint32_t material = mesh->face_material(face);
      const bool own = material != annMesh::no_material;
      colours.insert(number_of(own ? mesh->materials[material].colour : placed.colour));
    }
    parts.push_back({placed.node->name.str(), mesh->triangle_count(), colours});
  }
  return parts;
}

// What a page shows: the triangles of each part that has a shape.
std::vector<Part> parts_of_page(const std::string& page) {
  const std::string scene = page.substr(page.find("id=\"scene\">"));
  const std::regex mesh("\\{\"v\":\\d+,\"t\":(\\d+)");
  const std::regex node(R"re(\[-?\d+,(?:"([^"]*)"|\["[^"]*","([^"]*)"\]),(\d+),(-?\d+),\[)re");
  std::vector<std::size_t> triangles;
  for (std::sregex_iterator it(scene.begin(), scene.end(), mesh), end; it != end; ++it) {
    triangles.push_back(std::stoull((*it)[1]));
  }
  std::vector<Part> parts;
  for (std::sregex_iterator it(scene.begin(), scene.end(), node), end; it != end; ++it) {
    // A name is that of the part, or the instance's and the part's.
    parts.push_back({(*it)[1].matched ? (*it)[1] : (*it)[2], triangles.at(std::stoull((*it)[3])), {}});
  }
  return parts;
}

// `precision` is a part of the size.
void expect_box(const annDocument& after, const annDocument& before, double precision, const std::string& where) {
  const std::optional<annBox> a = ann_statistics(after).box;
  std::optional<annBox> b = ann_statistics(before).box;
  ASSERT_TRUE(a && b) << where;
  const annTransform turn = ann_turn(before.up, after.up);
  annBox turned{turn.point(b->min), turn.point(b->min)};
  turned.include(turn.point(b->max));
  b = turned;
  const double factor = vel_metres(before.unit) / vel_metres(after.unit);
  const double one[] = {a->min.x, a->min.y, a->min.z, a->max.x, a->max.y, a->max.z};
  const double two[] = {b->min.x, b->min.y, b->min.z, b->max.x, b->max.y, b->max.z};
  // The kernel's own boxes are larger by what it calls one point.
  const double close = precision * size_of(*a) + 2e-7;
  for (int i = 0; i < 6; ++i) EXPECT_NEAR(one[i], two[i] * factor, close) << where;
}

class ExactCorpus : public testing::Test {
 protected:
  // The whole files with a shape in them.
  static std::vector<CorpusFile> files() {
    std::vector<CorpusFile> files = corpus_files();
    std::erase_if(files, [](const CorpusFile& file) {
      return !std::set<std::string>{"step", "iges", "brep"}.contains(file.folder) || has_no_shape(file);
    });
    EXPECT_GT(files.size(), has_big_corpus() ? 30U : 10U);
    return files;
  }

  // A finite element model, which is a whole STEP file all the same.
  static bool has_no_shape(const CorpusFile& file) { return file.facts.starts_with("schema AP209"); }

  static Reading read(const CorpusFile& file) { return translator(file.folder + "reader").read(file.path.string()); }

  Reading written_and_read(const annDocument& document, const std::string& format, const std::string& where) {
    const std::string file = directory_ / ("a." + format);
    Messages messages;
    EXPECT_EQ(translator(format + "writer").write(document, file, messages), velabsDONE) << where << messages.errors;
    Reading reading = translator(format + "reader").read(file);
    EXPECT_EQ(reading.result, velabsDONE) << where << reading.messages.errors;
    return reading;
  }

  static annTolerance coarse_for(const annStatistics& statistics) {
    return {size_of(statistics.box.value()) * chord_of_size, std::numbers::pi / 3};
  }

  static void expect_looks(const std::vector<Part>& after, const std::vector<Part>& before, const std::string& format,
                           const std::string& where) {
    ASSERT_EQ(after.size(), before.size()) << where;
    for (std::size_t i = 0; i < before.size(); ++i) {
      EXPECT_EQ(after[i].colours, before[i].colours) << where << ": " << before[i].name;
      // STEP gives a name to what has none.
      const bool named = format != "step" || !before[i].name.empty();
      EXPECT_TRUE(!named || after[i].name == before[i].name) << where << ": " << before[i].name << ' ' << after[i].name;
      EXPECT_GT(after[i].triangles, 0U) << where;
    }
  }

  static void expect_same_parts(const std::vector<Part>& after, const std::vector<Part>& before,
                                const std::string& where) {
    ASSERT_EQ(after.size(), before.size()) << where;
    for (std::size_t i = 0; i < before.size(); ++i) {
      EXPECT_EQ(after[i].name, before[i].name) << where;
      EXPECT_EQ(after[i].triangles, before[i].triangles) << where;
    }
  }

  TemporaryDirectory directory_;
};

TEST_F(ExactCorpus, EveryWholeFileHasWhatCountingFound) {
  for (const CorpusFile& file : files()) {
    const std::string where = file.path.filename().string();
    const Reading reading = read(file);
    ASSERT_EQ(reading.result, velabsDONE) << where << reading.messages.errors;
    const Content content = content_of(reading.document), expected = counted(file);
    EXPECT_EQ(content.solids, expected.solids) << where;
    EXPECT_EQ(content.faces, expected.faces) << where;
    EXPECT_TRUE(file.folder != "step" || content.occurrences == expected.occurrences) << where << content.occurrences;
    EXPECT_EQ(reading.document.unit, unit_of(file)) << where;
  }
  for (const CorpusFile& file : corpus_files()) {
    if (!has_no_shape(file)) continue;
    const Reading reading = read(file);
    EXPECT_EQ(reading.result, velabsFAILED);
    EXPECT_NE(reading.messages.errors.find("holds no solid"), std::string::npos) << reading.messages.errors;
  }
}

TEST_F(ExactCorpus, EveryFileGoesToEveryExactFormat) {
  std::size_t translations = 0;
  for (const CorpusFile& file : files()) {
    const Reading source = read(file);
    ASSERT_EQ(source.result, velabsDONE) << file.path;
    const annStatistics before = source.statistics();
    const annTolerance coarse = coarse_for(before);
    const std::vector<Part> parts = parts_of(source.document, coarse);

    for (const std::string format : {"step", "iges", "brep", "hpf"}) {
      const std::string where = file.path.filename().string() + " to " + format;
      const Reading kept = written_and_read(source.document, format, where);
      const annStatistics after = kept.statistics();
      EXPECT_EQ(after.parts, before.parts) << where;
      EXPECT_EQ(after.solids, before.solids) << where;
      EXPECT_EQ(after.faces, before.faces) << where;
      const bool has_unit = format != "brep" && source.document.unit != velLENGTH_UNSPECIFIED;
      EXPECT_TRUE(!has_unit || kept.document.unit == source.document.unit) << where;
      expect_box(kept.document, source.document, 1e-6, where);
      if (format != "brep") expect_looks(parts_of(kept.document, coarse), parts, format, where);
      ++translations;
      if (format != "hpf") continue;
      const Reading step = written_and_read(kept.document, "step", where + " to step");
      EXPECT_EQ(content_of(step.document).faces, content_of(source.document).faces) << where;
      ++translations;
    }
  }
  std::printf("vel: %zu translations of exact files kept their shapes\n", translations);
}

TEST_F(ExactCorpus, EveryFileGoesToFormatsOfFacets) {
  for (const CorpusFile& file : files()) {
    const Reading source = read(file);
    ASSERT_EQ(source.result, velabsDONE) << file.path;
    const annStatistics before = source.statistics();
    const annTolerance coarse = coarse_for(before);
    const std::vector<Part> parts = parts_of(source.document, coarse);
    const std::string chord = std::to_string(coarse.chord);
    for (const std::string format : {"stl", "glb", "viewer"}) {
      const std::string where = file.path.filename().string() + " to " + format;
      const std::string target = directory_ / ("a." + format);
      Messages messages;
      ASSERT_EQ(translator(format + "writer")
                    .write(source.document, target, messages,
                           {{"CHORD_TOLERANCE", chord.c_str()}, {"ANGLE_TOLERANCE", "60"}}),
                velabsDONE)
          << where << messages.errors;
      if (format == "viewer") {
        expect_same_parts(parts_of_page(TemporaryDirectory::read(target)), parts, where);
        continue;
      }
      const Reading mesh = translator(format == "glb" ? "gltfreader" : "stlreader").read(target);
      ASSERT_EQ(mesh.result, velabsDONE) << where << mesh.messages.errors;
      expect_box(mesh.document, source.document, chord_of_size, where);
      EXPECT_GE(mesh.statistics().triangles, before.faces) << where;
      if (format == "glb") expect_looks(parts_of(mesh.document, coarse), parts, format, where);
    }
  }
}

TEST_F(ExactCorpus, OnePartInSeveralFormatsIsTheSame) {
  const std::string data = VEL_TEST_DATA, big = has_big_corpus() ? std::getenv("VEL_CORPUS") : "";
  const struct {
    std::string root, one, other;
    bool solids;  // in both of them
  } twins[] = {{data, "step/knob_metre.step", "brep/knob.brep", true},
               {data, "step/knob_metre.step", "iges/knob_solid_mm.igs", true},
               {data, "step/set_inch.step", "iges/set_inch.igs", false},
               {data, "step/set_inch.step", "brep/set.brep", true},
               {big, "step/as1_pe_203.stp", "brep/as1_pe_203.brep", true},
               {big, "step/as1_pe_203.stp", "iges/as1_pe_203.igs", false},
               {big, "step/test_pipe.step", "iges/test_pipe.igs", true}};
  const auto reading = [](const std::string& root, const std::string& file) {
    const std::string format = file.substr(0, 4);
    return translator(format + "reader").read(root + "/" + file);
  };
  for (const auto& twin : twins) {
    if (twin.root.empty()) continue;
    const Reading one = reading(twin.root, twin.one), other = reading(twin.root, twin.other);
    ASSERT_EQ(one.result, velabsDONE) << one.messages.errors;
    ASSERT_EQ(other.result, velabsDONE) << other.messages.errors;
    expect_box(other.document, one.document, 1e-6, twin.other);
    EXPECT_EQ(other.statistics().faces, one.statistics().faces) << twin.other;
    EXPECT_EQ(other.statistics().parts, one.statistics().parts) << twin.other;
    EXPECT_EQ(other.statistics().solids, twin.solids ? one.statistics().solids : 0) << twin.other;
  }
}

// Outermost faces are flat, but edges of theirs are splines in the file of others.
TEST_F(ExactCorpus, BoxesAreAsCloseAsTheNumbersOfTheFile) {
  const auto expect_box_of = [](const std::string& file, const annBox& expected) {
    const std::optional<annBox> box = translator("stepreader").read(file).statistics().box;
    ASSERT_TRUE(box) << file;
    const std::pair<double, double> numbers[] = {{box->min.x, expected.min.x}, {box->min.y, expected.min.y},
                                                 {box->min.z, expected.min.z}, {box->max.x, expected.max.x},
                                                 {box->max.y, expected.max.y}, {box->max.z, expected.max.z}};
    for (const auto& [number, should_be] : numbers) EXPECT_NEAR(number, should_be, 1e-12) << file;
  };
  expect_box_of(VEL_TEST_DATA "/step/set_inch.step", {{0, 0, 0}, {4, 3, 1.5}});
  if (!has_big_corpus()) return;
  expect_box_of(std::string(std::getenv("VEL_CORPUS")) + "/step/as1-oc-214.stp", {{-10, 0, -4}, {190, 150, 80}});
}

TEST_F(ExactCorpus, EveryReaderGivesAReasonForBrokenFiles) {
  std::vector<CorpusFile> broken = corpus_files();
  std::erase_if(broken, [](const CorpusFile& file) { return file.folder != "malformed"; });
  ASSERT_GT(broken.size(), has_big_corpus() ? 50U : 20U);
  for (const char* reader : {"stepreader", "igesreader", "brepreader"}) {
    const auto bad = bad_ends(broken.size(), 10, [&](std::size_t i) {
      const Reading reading = translator(reader).read(broken[i].path.string());
      const bool good = !reading.fault() && (reading.result != velabsDONE || reading.statistics().faces > 0);
      if (!good) return OtherResult::BAD;
      const bool over = reading.messages.errors.find("broke down") != std::string::npos;
      return over ? OtherResult::GOOD_FOR_THE_LAST_TIME : OtherResult::GOOD;
    });
    for (std::size_t i : bad) ADD_FAILURE() << reader << ": " << broken[i].path;
  }
}

}  // namespace
