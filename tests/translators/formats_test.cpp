#include <gtest/gtest.h>

#include <fstream>

#include "Formats.h"
#include "Solids.h"
#include "TemporaryDirectory.h"

// What the translators of all mesh formats do alike.

namespace {

class Formats : public testing::Test {
 protected:
  static std::vector<Format> installed() {
    std::vector<Format> formats;
    for (const Format& format : vel_mesh_formats) {
      if (is_installed(format.reader)) formats.push_back(format);
    }
    return formats;
  }

  static std::shared_ptr<annMesh> strip(std::uint32_t triangles) {
    auto mesh = std::make_shared<annMesh>();
    for (std::uint32_t i = 0; i < triangles + 2; ++i) mesh->vertices->points.push_back({0.1 * i, i % 2 + 0.5, 0});
    for (std::uint32_t i = 0; i < triangles; ++i) mesh->add_face(std::array{i, i + 1, i + 2});
    return mesh;
  }

  TemporaryDirectory directory_;
};

TEST_F(Formats, PartOfAFileIsNeverTakenForAllOfIt) {
  const auto mesh = strip(40);
  mesh->vertices->colours.assign(42, {1, 0.2F, 0, 1});
  mesh->vertices->normals.assign(42, {0, 0, 1});
  for (const Format& format : installed()) {
    const std::string file = directory_ / format.file, cut_file = directory_ / (std::string("cut_") + format.file);
    translator(format.writer).must_write(document_of(mesh), file, {{"FILE_FORMAT", format.form}});
    EXPECT_EQ(translator(format.reader).must_read(file).statistics().triangles, 40U) << format.name;
    std::filesystem::copy(file, cut_file);
    for (std::size_t tenth = 10; tenth-- > 0;) {
      std::filesystem::resize_file(cut_file, std::filesystem::file_size(file) * tenth / 10);
      const Reading reading = translator(format.reader).read(cut_file);
      EXPECT_FALSE(reading.fault()) << format.name << tenth;
      // OBJ files have no end and name no counts.
      const bool is_whole = format.name == std::string("OBJ") && reading.statistics().vertices > 0;
      EXPECT_TRUE(reading.result == velabsFAILED || is_whole) << format.name << tenth;
    }
  }
}

TEST_F(Formats, WorkStopsWhenItIsCancelled) {
  const annDocument document = document_of(strip(150000));
  for (const Format& format : installed()) {
    const std::string file = directory_ / format.file, other = directory_ / (std::string("not_") + format.file);
    translator(format.writer).must_write(document, file, {{"FILE_FORMAT", format.form}});
    EXPECT_EQ(translator(format.reader).read(file, {}, true).result, velabsCANCELLED) << format.name;
    std::filesystem::remove(file);
    Messages messages;
    messages.cancel = true;
    EXPECT_EQ(translator(format.writer).write(document, other, messages, {{"FILE_FORMAT", format.form}}),
              velabsCANCELLED)
        << format.name;
    EXPECT_FALSE(std::filesystem::exists(other)) << format.name;
  }
}

TEST_F(Formats, OnlyHpfKeepsDocumentsWithoutShapes) {
  for (const Format& format : installed()) {
    const std::string file = directory_ / format.file;
    if (format.name != std::string("HPF")) {
      translator(format.writer).must_not_write({}, file, "no shape");
    } else {
      translator(format.writer).must_write({}, file);
      EXPECT_TRUE(translator(format.reader).must_read(file).document.root.children.empty());
    }
  }
}

TEST_F(Formats, NullBytesAfterATextAreIgnored) {
  for (const Format& format : installed()) {
    if (format.form != std::string("ascii")) continue;
    const std::string file = directory_ / format.file;
    translator(format.writer).must_write(document_of(strip(40)), file, {{"FILE_FORMAT", format.form}});
    std::ofstream(file, std::ios::app) << std::string(5000, '\0');
    const Reading reading = translator(format.reader).must_read(file);
    EXPECT_EQ(reading.messages.warnings, "") << format.name;
    EXPECT_EQ(reading.statistics().triangles, 40U) << format.name;
  }
}

}  // namespace
