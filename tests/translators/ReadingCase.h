#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "Translator.h"

// A file, and what comes of reading it.
template <typename Content>
struct ReadingCase {
  const char* what;
  Content content;
  std::string expected;      // the outline of the model, or a part of the error behind "!"
  const char* message = "";  // a part of the notes and warnings; none are allowed when empty
};

// Compares a reading with what the case expects. `outline` draws a document as the test expects it.
template <typename Content, typename Outline>
void check_reading(const ReadingCase<Content>& c, const Reading& reading, Outline outline) {
  const Messages& messages = reading.messages;
  EXPECT_FALSE(reading.fault()) << c.what;
  EXPECT_LE(std::count(messages.errors.begin(), messages.errors.end(), '\n'), 1) << c.what << ": " << messages.errors;
  if (c.expected.starts_with('!')) {
    EXPECT_NE(messages.errors.find(c.expected.substr(1)), std::string::npos) << c.what << ": " << messages.errors;
    return;
  }
  ASSERT_EQ(reading.result, velabsDONE) << c.what << ": " << messages.errors;
  EXPECT_EQ(outline(reading.document), c.expected) << c.what;
  const std::string said = messages.warnings + messages.notes;
  EXPECT_NE(said.find(c.message), said.npos) << c.what << ": " << said;
  EXPECT_EQ(said.empty(), !*c.message) << c.what << ": " << said;
}

// The corners of all faces of the only part: "0 1 2|0 2 3".
inline std::string corners_of(const annDocument& document) {
  const annMesh& mesh = *document.root.children.at(0)->body.mesh;
  std::string result;
  for (std::size_t i = 0; i < mesh.face_count(); ++i) {
    for (std::uint32_t corner : mesh.face(i)) result += std::to_string(corner) + " ";
    result.back() = '|';
  }
  return result.substr(0, result.empty() ? 0 : result.size() - 1);
}
