#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <numbers>
#include <regex>
#include <set>

#include "Boxes.h"
#include "Corpus.h"
#include "OtherProcess.h"
#include "Solids.h"
#include "TemporaryDirectory.h"
#include "Translator.h"
#include "annDefinitions.h"

// The files of exact shapes of tests/data, and with VEL_CORPUS real files of others.

namespace {

// Facets are this part of the size away from the shape at most.
constexpr double chord_of_size = 0.02;

// What a document describes, each part once.
struct Content {
  std::size_t solids = 0, faces = 0, occurrences = 0;
};

Content content_of(const annDocument& document) {
  Content content;
  const annDefinitions definitions(document);
  content.occurrences = definitions.occurrences();
  for (const annDefinitions::Definition& definition : definitions.definitions()) {
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
  const auto number = [&](const char* word) { return file.number_behind(word).value(); };
  if (file.folder == "iges") return {entities(file, "186"), entities(file, "144") + entities(file, "510")};
  if (file.folder == "brep") return {number("So"), number("Fa")};
  if (file.facts.find("split over") == std::string::npos && file.path.parent_path().filename() == "step") {
    return {number("solids"), number("faces"), number("occurrences")};
  }
  // The page counts the first file of an assembly of many.
  const auto directory = file.path.parent_path();
  return {keywords(directory, "MANIFOLD_SOLID_BREP"), keywords(directory, "ADVANCED_FACE"),
          keywords(directory, "NEXT_ASSEMBLY_USAGE_OCCURRENCE")};
}

velLengthUnit unit_of(const CorpusFile& file) {
  if (file.folder == "brep") return velLENGTH_UNSPECIFIED;
  std::smatch match;
  const std::regex pattern("unit (?:flag \\d+ )?(INCH|MM|MILLI ?METRE|METRE|M)\\b");
  if (!std::regex_search(file.facts, match, pattern)) return velLENGTH_UNSPECIFIED;
  if (match[1] == "INCH") return velLENGTH_INCH;
  return match[1] == "M" || match[1] == "METRE" ? velLENGTH_METRE : velLENGTH_MILLIMETRE;
}

// A part where it stands, with the colours that it shows.
struct Part {
  std::string name, label;
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
    const auto mesh = facets_of(placed.node->body, tolerance);
    std::set<long> colours;
    for (std::size_t face = 0; face < mesh->face_count(); ++face) {
      colours.insert(number_of(face_colour(*mesh, face, placed.colour)));
    }
    parts.push_back({placed.node->name.str(), placed.node->label().str(), mesh->triangle_count(), colours});
  }
  return parts;
}

// `precision` is a part of the size.
void expect_box(const annDocument& after, const annDocument& before, double precision, const std::string& where) {
  const std::optional<annBox> a = ann_statistics(after).box;
  const std::optional<annBox> b = ann_statistics(before).box;
  ASSERT_TRUE(a && b) << where;
  const double factor = vel_metres(before.unit) / vel_metres(after.unit);
  // The kernel's own boxes are larger by what it calls one point.
  expect_same_box(*a, turned(*b, ann_turn(before.up, after.up)) * factor, precision * size_of(*a) + 2e-7, where);
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

  Reading written_and_read(const annDocument& document, const std::string& format, const std::string& where) {
    const std::string file = directory_ / ("a." + format);
    SCOPED_TRACE(where);
    translator(format + "writer").must_write(document, file);
    return translator(format + "reader").must_read(file);
  }

  // A file, and what must be found again of it.
  struct Source {
    explicit Source(const CorpusFile& file)
        : name(file.path.filename().string()),
          reading(translator(file.folder + "reader").must_read(file.path.string())) {}

    const std::string name;
    const Reading reading;
    const annStatistics statistics = reading.statistics();
    const annTolerance coarse{size_of(statistics.box.value()) * chord_of_size, std::numbers::pi / 3};
    const std::vector<Part> parts = parts_of(reading.document, coarse);
  };

  static void expect_looks(const std::vector<Part>& after, const std::vector<Part>& before, const std::string& format,
                           const std::string& where) {
    ASSERT_EQ(after.size(), before.size()) << where;
    for (std::size_t i = 0; i < before.size(); ++i) {
      EXPECT_EQ(after[i].colours, before[i].colours) << where << ": " << before[i].name;
      // STEP gives a name to what has none.
      const bool named = format != "step" || !before[i].name.empty();
      EXPECT_TRUE(!named || after[i].label == before[i].label)
          << where << ": " << before[i].label << ' ' << after[i].label;
      // IGES has only the label.
      const bool holds_both = named && format != "iges";
      EXPECT_TRUE(!holds_both || after[i].name == before[i].name)
          << where << ": " << before[i].name << ' ' << after[i].name;
      EXPECT_GT(after[i].triangles, 0U) << where;
    }
  }

  TemporaryDirectory directory_;
};

TEST_F(ExactCorpus, EveryWholeFileHasWhatCountingFound) {
  for (const CorpusFile& file : files()) {
    const std::string where = file.path.filename().string();
    const Reading reading = translator(file.folder + "reader").must_read(file.path.string());
    const Content content = content_of(reading.document), expected = counted(file);
    EXPECT_EQ(content.solids, expected.solids) << where;
    EXPECT_EQ(content.faces, expected.faces) << where;
    EXPECT_TRUE(file.folder != "step" || content.occurrences == expected.occurrences) << where << content.occurrences;
    EXPECT_EQ(reading.document.unit, unit_of(file)) << where;
  }
  for (const CorpusFile& file : corpus_files()) {
    if (has_no_shape(file)) translator("stepreader").must_not_read(file.path.string(), "holds no solid");
  }
}

TEST_F(ExactCorpus, EveryFileGoesToEveryExactFormat) {
  std::size_t translations = 0;
  for (const CorpusFile& file : files()) {
    const Source source(file);
    const annDocument& document = source.reading.document;
    const annStatistics& before = source.statistics;
    for (const std::string format : {"step", "iges", "brep", "hpf"}) {
      const std::string where = source.name + " to " + format;
      const Reading kept = written_and_read(document, format, where);
      const annStatistics after = kept.statistics();
      EXPECT_EQ(after.parts, before.parts) << where;
      EXPECT_EQ(after.solids, before.solids) << where;
      EXPECT_EQ(after.faces, before.faces) << where;
      const bool has_unit = format != "brep" && document.unit != velLENGTH_UNSPECIFIED;
      EXPECT_TRUE(!has_unit || kept.document.unit == document.unit) << where;
      expect_box(kept.document, document, 1e-6, where);
      if (format != "brep") expect_looks(parts_of(kept.document, source.coarse), source.parts, format, where);
      ++translations;
      if (format != "hpf") continue;
      const Reading step = written_and_read(kept.document, "step", where + " to step");
      EXPECT_EQ(content_of(step.document).faces, content_of(document).faces) << where;
      ++translations;
    }
  }
  std::printf("vel: %zu translations of exact files kept their shapes\n", translations);
}

TEST_F(ExactCorpus, EveryFileGoesToFormatsOfFacets) {
  for (const CorpusFile& file : files()) {
    const Source source(file);
    const annDocument& document = source.reading.document;
    const std::string chord = std::to_string(source.coarse.chord);
    for (const std::string format : {"stl", "glb", "viewer"}) {
      const std::string where = source.name + " to " + format;
      const std::string target = directory_ / ("a." + format);
      SCOPED_TRACE(where);
      translator(format + "writer")
          .must_write(document, target, {{"CHORD_TOLERANCE", chord.c_str()}, {"ANGLE_TOLERANCE", "60"}});
      if (format == "viewer") continue;
      const Reading mesh = translator(format == "glb" ? "gltfreader" : "stlreader").must_read(target);
      expect_box(mesh.document, document, chord_of_size, where);
      EXPECT_GE(mesh.statistics().triangles, source.statistics.faces) << where;
      if (format == "glb") expect_looks(parts_of(mesh.document, source.coarse), source.parts, format, where);
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
  const auto read = [](const std::string& root, const std::string& file) {
    return translator(file.substr(0, 4) + "reader").must_read(root + "/" + file);
  };
  for (const auto& twin : twins) {
    if (twin.root.empty()) continue;
    const Reading one = read(twin.root, twin.one), other = read(twin.root, twin.other);
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
    expect_same_box(*box, expected, 1e-12, file);
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
      const bool is_empty = reading.result == velabsDONE && reading.statistics().faces == 0;
      return is_empty ? OtherResult::BAD : result_of(reading);
    });
    for (std::size_t i : bad) ADD_FAILURE() << reader << ": " << broken[i].path;
  }
}

}  // namespace
