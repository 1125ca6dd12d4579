#pragma once

#include <gtest/gtest.h>
#include <array>
#include <map>

#include "TemporaryDirectory.h"
#include "Translator.h"

// Files of exact shapes: the example, and what writers make, for tests that read them as they are or change their
// bytes.
class ExactFiles : public testing::Test {
 protected:
  // The libraries stay open, as what they read needs them.
  static const Translator& reader(const std::string& format) { return translator(format + "reader"); }
  static const Translator& writer(const std::string& format) { return translator(format + "writer"); }

  static annDocument triangle(const std::string& name) {
    annDocument document;
    document.unit = velLENGTH_MILLIMETRE;
    auto mesh = std::make_shared<annMesh>();
    mesh->vertices->points = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    mesh->add_face(std::array<std::uint32_t, 3>{0, 1, 2});
    document.root.add_child(utString(name)).body.mesh = mesh;
    return document;
  }

  std::string path(const std::string& name) const { return directory_ / name; }

  // The bytes of a file, and what its writer said.
  std::string written(const annDocument& document, const std::string& format, Messages& messages) const {
    const std::string file = path("ground." + format);
    EXPECT_EQ(writer(format).write(document, file, messages, {{"FILE_FORMAT", "ascii"}}), velabsDONE)
        << messages.errors;
    return TemporaryDirectory::read(file);
  }
  std::string written(const annDocument& document, const std::string& format) const {
    Messages messages;
    return written(document, format, messages);
  }

  Reading read(const std::string& bytes, const std::string& format) const {
    return reader(format).read(directory_.write("changed." + format, bytes));
  }

  // Writes a document and reads it again.
  Reading through(const annDocument& document, const std::string& format, Options out = {}, Options in = {}) const {
    const std::string file = path("through." + format);
    Messages messages;
    EXPECT_EQ(writer(format).write(document, file, messages, out), velabsDONE) << messages.errors;
    Reading reading = reader(format).read(file, in);
    EXPECT_EQ(reading.result, velabsDONE) << format << ": " << reading.messages.errors;
    return reading;
  }

  const std::string example = VEL_EXAMPLES "/assembly.step";
  TemporaryDirectory directory_;

 private:
  static const Translator& translator(const std::string& name) {
    static std::map<std::string, Translator> translators;
    return translators.try_emplace(name, name).first->second;
  }
};

// Every place of a text in another one gets a text instead.
inline std::string replaced(std::string bytes, const std::string& what, const std::string& by) {
  for (std::size_t at = bytes.find(what); at != bytes.npos; at = bytes.find(what, at + by.size())) {
    bytes.replace(at, what.size(), by);
  }
  return bytes;
}
