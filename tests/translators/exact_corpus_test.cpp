#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <regex>
#include <set>

#include "Corpus.h"
#include "OtherProcess.h"
#include "TemporaryDirectory.h"
#include "Translator.h"
#include "annDefinitions.h"

// Real files of exact shapes, below the directory that VEL_CORPUS names; without it there is nothing to do.

namespace {

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

// What counting found, in the terms of the format; IGES files have no solids to count, and no products.
Content counted(const CorpusFile& file) {
  if (file.folder == "iges") return {0, entities(file, "144") + entities(file, "510"), 0, {}};
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

// `precision` is a part of the size.
void expect_box(const annDocument& after, const annDocument& before, double precision, const std::string& where) {
  const std::optional<annBox> a = ann_statistics(after).box, b = ann_statistics(before).box;
  ASSERT_TRUE(a && b) << where;
  double factor = 1;
  if (vel_metres(after.unit) > 0 && vel_metres(before.unit) > 0) {
    factor = vel_metres(before.unit) / vel_metres(after.unit);
  }
  const double one[] = {a->min.x, a->min.y, a->min.z, a->max.x, a->max.y, a->max.z};
  const double two[] = {b->min.x, b->min.y, b->min.z, b->max.x, b->max.y, b->max.z};
  // The kernel's own boxes are larger by what it calls one point.
  const double close = precision * size_of(*a) + 2e-7;
  for (int i = 0; i < 6; ++i) EXPECT_NEAR(one[i], two[i] * factor, close) << where;
}

class ExactCorpus : public testing::Test {
 protected:
  void SetUp() override {
    if (!std::getenv("VEL_CORPUS")) GTEST_SKIP() << "VEL_CORPUS names no directory";
  }

  // The whole files with a shape in them.
  static std::vector<CorpusFile> files() {
    std::vector<CorpusFile> files = corpus_files();
    std::erase_if(files, [](const CorpusFile& file) {
      return !std::set<std::string>{"step", "iges", "brep"}.contains(file.folder) || has_no_shape(file);
    });
    EXPECT_GT(files.size(), 20U);
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

TEST_F(ExactCorpus, EveryFileGoesToEveryFormat) {
  std::size_t translations = 0;
  const std::vector<CorpusFile> sources = files();
  for (const CorpusFile& file : sources) {
    const Reading source = read(file);
    ASSERT_EQ(source.result, velabsDONE) << file.path;
    const annStatistics before = source.statistics();
    const Content content = content_of(source.document);

    for (const std::string format : {"step", "iges", "brep", "hpf"}) {
      const std::string where = file.path.filename().string() + " to " + format;
      const Reading kept = written_and_read(source.document, format, where);
      EXPECT_EQ(ann_statistics(kept.document, false).solids, before.solids) << where;
      EXPECT_EQ(ann_statistics(kept.document, false).faces, before.faces) << where;
      const bool has_unit = format != "brep" && source.document.unit != velLENGTH_UNSPECIFIED;
      EXPECT_TRUE(!has_unit || kept.document.unit == source.document.unit) << where;
      expect_box(kept.document, source.document, 1e-6, where);
      // What has no name in another format gets one as a product.
      const bool named = format == "step" && file.folder == "step";
      EXPECT_TRUE(!named || content_of(kept.document).names == content.names) << where;
      if (format == "hpf") {
        const Reading step = written_and_read(kept.document, "step", where + " to step");
        EXPECT_EQ(content_of(step.document).faces, content.faces) << where;
        ++translations;
      }
      ++translations;
    }

    const std::string chord = std::to_string(size_of(before.box.value()) / 50);
    for (const std::string format : {"stl", "glb", "viewer"}) {
      const std::string where = file.path.filename().string() + " to " + format;
      const std::string target = directory_ / ("a." + format);
      Messages messages;
      ASSERT_EQ(translator(format + "writer")
                    .write(source.document, target, messages,
                           {{"CHORD_TOLERANCE", chord.c_str()}, {"ANGLE_TOLERANCE", "60"}}),
                velabsDONE)
          << where << messages.errors;
      if (format == "stl") {
        const Reading mesh = translator("stlreader").read(target);
        EXPECT_GE(mesh.statistics().triangles, before.faces) << where;
        expect_box(mesh.document, source.document, 0.05, where);
      }
      ++translations;
    }
  }
  std::printf("vel: %zu translations of %zu exact files kept their shapes\n", translations, sources.size());
}

TEST_F(ExactCorpus, OnePartInThreeFormatsIsTheSame) {
  const std::filesystem::path root = std::getenv("VEL_CORPUS");
  const Reading step = translator("stepreader").read((root / "step/as1_pe_203.stp").string());
  const Reading iges = translator("igesreader").read((root / "iges/as1_pe_203.igs").string());
  const Reading brep =
      translator("brepreader").read((root / "brep/as1_pe_203.brep").string(), {{"LENGTH_UNIT", "millimetre"}});
  for (const Reading* reading : {&iges, &brep}) {
    ASSERT_EQ(reading->result, velabsDONE) << reading->messages.errors;
    expect_box(reading->document, step.document, 1e-6, "as1_pe_203");
    EXPECT_EQ(reading->statistics().faces, step.statistics().faces);
    EXPECT_EQ(reading->statistics().parts, step.statistics().parts);
  }
}

TEST_F(ExactCorpus, EveryReaderGivesAReasonForBrokenFiles) {
  std::vector<CorpusFile> broken = corpus_files();
  std::erase_if(broken, [](const CorpusFile& file) { return file.folder != "malformed"; });
  ASSERT_GT(broken.size(), 30U);
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
