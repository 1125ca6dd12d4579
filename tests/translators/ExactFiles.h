#pragma once

#include <string>

#include "Solids.h"
#include "TemporaryDirectory.h"
#include "Translator.h"

// Files of exact shapes: the example, and what writers make, for tests that read them as they are or change their
// bytes.
class ExactFiles : public testing::Test {
 protected:
  static const Translator& reader(const std::string& format) { return translator(format + "reader"); }
  static const Translator& writer(const std::string& format) { return translator(format + "writer"); }

  static annDocument triangle(const std::string& name) {
    return document_of(mesh_of({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 2}}), name.c_str());
  }

  std::string path(const std::string& name) const { return directory_ / name; }

  // The bytes of a file, and what its writer said.
  std::string written(const annDocument& document, const std::string& format, Messages& messages) const {
    const std::string file = path("ground." + format);
    messages = writer(format).must_write(document, file, {{"FILE_FORMAT", "ascii"}});
    return TemporaryDirectory::read(file);
  }
  std::string written(const annDocument& document, const std::string& format) const {
    Messages messages;
    return written(document, format, messages);
  }

  Reading read(const std::string& bytes, const std::string& format) const {
    return reader(format).must_read(directory_.write("changed." + format, bytes));
  }

  // Writes a document and reads it again.
  Reading through(const annDocument& document, const std::string& format, Options out = {}, Options in = {}) const {
    const std::string file = path("through." + format);
    writer(format).must_write(document, file, out);
    return reader(format).must_read(file, in);
  }

  const std::string example = VEL_EXAMPLES "/assembly.step";
  TemporaryDirectory directory_;
};

// Every place of a text in another one gets a text instead.
inline std::string replaced(std::string bytes, const std::string& what, const std::string& by) {
  for (std::size_t at = bytes.find(what); at != bytes.npos; at = bytes.find(what, at + by.size())) {
    bytes.replace(at, what.size(), by);
  }
  return bytes;
}
