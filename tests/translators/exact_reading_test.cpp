#include <iostream>
#include <regex>

#include "ExactFiles.h"
#include "OtherProcess.h"

// What is said of files that are empty, odd or broken.
using ExactReading = ExactFiles;

TEST_F(ExactReading, AFileWithoutShapesIsSaidToBeOne) {
  const std::string start =
      "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\n"
      "FILE_NAME('','',(''),(''),'','','');\n";
  const std::string end = "ENDSEC;\nDATA;\n#1=CARTESIAN_POINT('',(0.,0.,0.));\nENDSEC;\nEND-ISO-10303-21;\n";
  const std::pair<const char*, const char*> headers[] = {
      {"FILE_SCHEMA(('PLANT_SCHEMA { 1 0 }'));\n", "no solid, shell or face; its schema is \"PLANT_SCHEMA\""},
      {"", "no solid, shell or face; it names no schema"}};
  for (const auto& [schema, reason] : headers) {
    reader("step").must_not_read(directory_.write("empty.step", start + schema + end), reason);
  }
  const std::string none = start + headers[0].first + "ENDSEC;\nDATA;\nENDSEC;\nEND-ISO-10303-21;\n";
  EXPECT_TRUE(reader("step").must_read(directory_.write("empty.step", none)).document.root.children.empty());
}

TEST_F(ExactReading, StepFilesAreTakenByTheirNumbersAndTellWhatIsLeftOut) {
  auto with = [&](const std::string& line) {
    std::string added = TemporaryDirectory::read(example);
    return directory_.write("added.step", added.insert(added.rfind("ENDSEC;"), line));
  };
  const Reading layered =
      reader("step").must_read(with("#900000=PRESENTATION_LAYER_ASSIGNMENT('1','#1=\nit''s no entity; #2=',(#10));\n"));
  EXPECT_NE(layered.messages.notes.find("layers are left out"), std::string::npos) << layered.messages.notes;
  reader("step").must_not_read(with("/* #900000=; */ #10=CARTESIAN_POINT('',(0.,0.,0.));\n"),
                               "#10 for the second time");
}

TEST_F(ExactReading, IgesFilesMayBePaddedAtTheirEnd) {
  const std::string iges = written(triangle("part"), "iges");
  for (const std::string& padding : {std::string("\r\n   \r\n"), std::string(4000, '\0')}) {
    reader("iges").must_read(directory_.write("padded.iges", iges + padding));
  }
}

// Curves, and the surfaces that faces lie on, are no bodies.
TEST_F(ExactReading, HiddenBodiesAreLeftOutUnlessTheyAreAskedFor) {
  annDocument document = triangle("first");
  for (const char* name : {"first", "other"}) {
    annNode& node = document.root.add_child(name);
    node.body.mesh = document.root.children[0]->body.mesh;
    node.transform.m[11] = static_cast<double>(document.root.children.size());
  }
  const std::string iges = written(document, "iges"), step = written(document, "step");
  const auto hide_in_iges = [&](const std::string& type, std::size_t most) {
    std::string text = iges;
    for (std::size_t line = 0; line < text.size() && most > 0; line = text.find('\n', line) + 1) {
      const bool first_line = (text[line + 79] - '0') % 2 == 1;
      if (text[line + 72] != 'D' || !first_line || text.compare(line, 8, type) != 0) continue;
      text[line + 65] = '1';
      --most;
    }
    return text;
  };
  const auto hide_in_step = [&](const std::string& keyword, std::size_t most) {
    std::string text = step, lines;
    for (std::size_t at = 0; most > 0 && (at = step.find(" = " + keyword, at + 1)) != step.npos; --most) {
      const std::string number = step.substr(step.rfind('#', at) + 1, at - step.rfind('#', at) - 1);
      lines += "#9" + number + "0=STYLED_ITEM('',(),#" + number + ");\n#9" + number + "1=INVISIBILITY((#9" + number +
               "0));\n";
    }
    return text.insert(text.rfind("ENDSEC;"), lines);
  };
  const std::string hidden = hide_in_step("SHELL_BASED_SURFACE_MODEL", 3);
  const std::string in_view = std::regex_replace(hidden, std::regex(R"(=INVISIBILITY\((\(#\d+\))\))"),
                                                 "=CONTEXT_DEPENDENT_INVISIBILITY($1,#10)");
  const std::string in_instance = std::regex_replace(hidden, std::regex(R"(=STYLED_ITEM\('',\(\),(#\d+)\))"),
                                                     "=CONTEXT_DEPENDENT_OVER_RIDING_STYLED_ITEM('',(),$1,$$,(#10))");
  const struct {
    const char *what, *format;
    std::string bytes;
    std::size_t parts;
  } cases[] = {{"a shell", "iges", hide_in_iges("     514", 1), 2},
               {"a curve", "iges", hide_in_iges("     110", 9), 3},
               {"a surface of a face", "iges", hide_in_iges("     190", 9), 3},
               {"all shells", "iges", hide_in_iges("     514", 3), 0},
               {"a shell of two instances", "step", hide_in_step("SHELL_BASED_SURFACE_MODEL", 1), 1},
               {"an edge", "step", hide_in_step("EDGE_CURVE", 9), 3},
               {"shells in one view", "step", in_view, 3},
               {"shells in one instance", "step", in_instance, 3},
               {"all shells", "step", hidden, 0}};
  for (const auto& it : cases) {
    const std::string where = it.what + std::string(" in ") + it.format;
    const std::string file = directory_.write(std::string("hidden.") + it.format, it.bytes);
    const Reading seen = reader(it.format).read(file), all = reader(it.format).read(file, {{"SHOW_HIDDEN", "1"}});
    EXPECT_EQ(seen.statistics().parts, it.parts) << where;
    EXPECT_EQ(seen.result, it.parts > 0 ? velabsDONE : velabsFAILED) << where;
    EXPECT_EQ(seen.messages.errors.find("option show-hidden shows them") != std::string::npos, it.parts == 0)
        << seen.messages.errors;
    const std::string count =
        it.parts == 2 ? "1 body that the file hides is " : std::to_string(3 - it.parts) + " bodies";
    EXPECT_EQ(seen.messages.notes.find(count) != std::string::npos, it.parts < 3) << where << seen.messages.notes;
    EXPECT_EQ(seen.messages.notes.find("left out; the option show-hidden") != std::string::npos, it.parts < 3) << where;
    const bool in_one_context = it.bytes == in_view || it.bytes == in_instance;
    EXPECT_EQ(seen.messages.notes.find("only in an instance or a view are shown") != std::string::npos, in_one_context)
        << where << seen.messages.notes;
    EXPECT_EQ(all.statistics().parts, 3U) << where << all.messages.errors;
    EXPECT_EQ(all.messages.notes.find("shown like the rest") != std::string::npos, it.parts < 3) << where;
  }
}

// What the kernel prints is dropped, on the threads where a program tells of the work.
TEST_F(ExactReading, WhatIsSaidWhileTheKernelWorksIsHeard) {
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

TEST_F(ExactReading, BrokenFilesGiveAReasonAndNothingElse) {
  const Reading source = reader("step").read(example);
  for (const std::string format : {"step", "iges", "brep"}) {
    writer(format).must_write(source.document, path("whole." + format));
  }
  for (const std::string format : {"step", "iges", "brep"}) {
    const std::string whole_file = path("whole." + format), cut_file = path("cut." + format);
    const std::string whole = TemporaryDirectory::read(whole_file);
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
      return result_of(reader(format).read(cut_file));
    });
    EXPECT_TRUE(bad.empty()) << format << ' ' << testing::PrintToString(bad);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "") << format;
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << format;
    EXPECT_EQ(reader(format).read(whole_file, {}, true).result, velabsCANCELLED) << format;
  }
}
