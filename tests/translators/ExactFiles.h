#pragma once

#include <gtest/gtest.h>
#include <array>
#include <fstream>
#include <iterator>
#include <map>

#include "TemporaryDirectory.h"
#include "Translator.h"

// Files of exact shapes as their writers make them, for tests that change their bytes and read them again.
class ExactFiles : public testing::Test {
 protected:
  static annDocument triangle(const std::string& name) {
    annDocument document;
    document.unit = velLENGTH_MILLIMETRE;
    auto mesh = std::make_shared<annMesh>();
    mesh->vertices->points = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    mesh->add_face(std::array<std::uint32_t, 3>{0, 1, 2});
    document.root.add_child(utString(name)).body.mesh = mesh;
    return document;
  }

  // The bytes of a file, and what its writer said.
  std::string written(const annDocument& document, const std::string& format, Messages& messages) const {
    const std::string file = directory_ / ("ground." + format);
    EXPECT_EQ(translator(format + "writer").write(document, file, messages, {{"FILE_FORMAT", "ascii"}}), velabsDONE)
        << messages.errors;
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  std::string written(const annDocument& document, const std::string& format) const {
    Messages messages;
    return written(document, format, messages);
  }

  Reading read(const std::string& bytes, const std::string& format) const {
    const std::string file = directory_ / ("changed." + format);
    std::ofstream(file, std::ios::binary) << bytes;
    return translator(format + "reader").read(file);
  }

  TemporaryDirectory directory_;

 private:
  // They stay open, as what they read needs them.
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
