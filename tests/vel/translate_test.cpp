#include <gtest/gtest.h>
#include <csignal>
#include <nlohmann/json.hpp>

#include "Program.h"

namespace fs = std::filesystem;
using nlohmann::json;

TEST(Translate, EachFaultHasItsCodeAndAMessageThatHelps) {
  const Installation installation;
  const TemporaryDirectory& work = installation.work;
  const std::string stl = tetrahedron_stl;
  work.write("good.stl", stl);
  work.write("empty.stl", "");
  work.write("garbage.xyz", std::string("\x01\x02\x7f garbage \xfe\xff", 14));
  std::string wide;
  for (char c : stl) wide += {c, '\0'};
  work.write("wide.stl", wide);
  work.write("no_triangles.stl", std::string(84, '\0'));
  work.write("points.obj", "v 0 0 0\nv 1 0 0\n");
  work.write("cut.stl", stl.substr(0, stl.size() / 2));
  work.write("typo.stl", std::string(stl).replace(stl.find("vertex 1 0 0"), 6, "vertxx"));
  work.write("off.off", "OFF\n3 1 0\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n");
  work.write("file", "in the way");
  work.write("old.obj", "old");
  fs::create_directory(work / "directory");
  work.make_pipe("pipe.stl");

  const struct {
    std::vector<std::string> words;
    int code;
    std::vector<std::string> texts;
  } errors[] = {
      {{"missing.stl", "-o", "old.obj"}, 4, {"missing.stl", "No such file"}},
      {{"directory", "-o", "old.obj"}, 4, {"directory: ", "Name a file"}},
      {{"pipe.stl", "-o", "old.obj"}, 4, {"pipe.stl", "no regular file"}},
      {{"empty.stl", "-o", "old.obj"}, 4, {"empty.stl", "is empty"}},
      {{"cut.stl", "-o", "old.obj"}, 4, {"cut.stl", "Nothing was written"}},
      {{"typo.stl", "-o", "old.obj"}, 4, {"typo.stl", "line 6", "Nothing was written"}},
      {{"garbage.xyz", "-o", "old.obj"}, 3, {"garbage.xyz", "no known type", "OBJ, STL"}},
      {{"wide.stl", "-o", "old.obj"}, 4, {"wide.stl", "UTF-16", "iconv"}},
      {{"no_triangles.stl", "-o", "old.obj"}, 4, {"no_triangles.stl: the model is empty", "Nothing was written"}},
      {{"off.off", "-o", "old.obj"}, 3, {"off.off", "OFF", "OBJ, STL"}},
      {{"good.stl", "-o", "out.xyz"}, 3, {"out.xyz", "OBJ, STL", "--to"}},
      {{"good.stl", "-o", "out"}, 3, {"no extension", "OBJ, STL", "--to"}},
      {{"cut.stl", "-o", "directory"}, 1, {"directory: ", "name a file in it"}},
      {{"cut.stl", "-o", "directory/"}, 1, {"directory/: ", "name a file in it"}},
      {{"cut.stl", "-o", "none/out.xyz"}, 1, {"none/", "does not exist"}},
      {{"garbage.xyz", "-o", "old.obj", "--from", "stl"}, 4, {"garbage.xyz", "Nothing was written"}},
      {{"good.stl", "-o", "old.obj", "--from", "obj"}, 4, {"good.stl: its content is STL, not OBJ. Leave --from out."}},
      {{"good.stl", "-o", "old.obj", "--from", "XYZ"}, 3, {"XYZ: no translator reads", "OBJ, STL", "--from"}},
      {{"good.stl", "-o", "old.obj", "--from", "STEP"}, 3, {"STEP", "libocct-data-exchange-dev"}},
      {{"good.stl", "-o", "old.obj", "--to", "XYZ"}, 3, {"XYZ", "OBJ, STL"}},
      {{"good.stl", "-o", "old.obj", "--in", "NO_SUCH=1"}, 2, {"--in NO_SUCH", "weld-points"}},
      {{"good.stl", "-o", "old.obj", "--out", "WELD_POINTS=1"}, 2, {"WELD_POINTS", "OBJ"}},
      {{"good.stl", "-o", "old.obj", "--in", "SCALE=nan"}, 2, {"scale", "\"nan\"", "number"}},
      {{"good.stl", "-o", "old.obj", "--out", "DIGITS=1.5"}, 2, {"digits", "\"1.5\"", "whole"}},
      {{"good.stl", "-o", "old.obj", "--in", "weld_points=maybe"}, 2, {"weld-points", "\"maybe\"", "True, 0, 1"}},
      {{"good.stl", "-o", "old.obj", "--in", "scale=0"}, 2, {"--in scale", "\"0\"", "greater than 0"}},
      {{"good.stl", "-o", "old.obj", "--out", "digits=18"}, 2, {"--out digits", "from 0 to 17"}},
      {{"good.stl", "-o", "file/out.obj"}, 1, {"file/out.obj", "below a file"}},
      {{"good.stl", "-o", "new.obj/", "--to", "OBJ"}, 1, {"new.obj/", "directory"}},
      {{"good.stl", "-o", "/dev/full", "--to", "OBJ"}, 1, {"/dev/full", "No space"}},
      {{"good.stl", "-o", "good.stl"}, 1, {"good.stl", "input"}},
  };
  const std::vector<std::string> before = installation.files();
  for (const auto& c : errors) {
    std::vector<std::string> words{"translate"};
    words.insert(words.end(), c.words.begin(), c.words.end());
    installation.expect_error(words, c.code, c.texts);
  }
  installation.expect({"translate", "points.obj", "-o", "points.stl"}, 1,
                      {"points.stl: the model holds no faces, only vertices, and STL"});
  EXPECT_EQ(installation.files(), before);
  EXPECT_EQ(work.read(work / "old.obj"), "old");
  EXPECT_EQ(work.read(work / "good.stl"), stl);
}

TEST(Translate, ReadsByTheExtensionWhereTheContentShowsNoFormat) {
  const Installation installation;
  installation.work.write("comments.obj", "# nothing else\n");
  installation.work.write("garbage.stl", std::string(84, '\xFF'));
  const Outcome empty =
      installation.expect({"info", "comments.obj", "--json"}, 0,
                          {"vel: note: comments.obj: its content does not show its format; it is read as OBJ",
                           "vel: warning: comments.obj: the model is empty"});
  EXPECT_EQ(json::parse(empty.out)["parts"], 0);
  installation.expect({"translate", "garbage.stl", "-o", "a.obj"}, 4, {"it is read as STL"});
  EXPECT_FALSE(fs::exists(installation.work / "a.obj"));
}

TEST(Translate, WritesAndTellsWhat) {
  const Installation installation;
  const TemporaryDirectory& work = installation.work;
  work.write("a.stl", tetrahedron_stl);
  work.write("b.obj", tetrahedron_obj);

  EXPECT_EQ(installation.run({"translate", "a.stl", "-o", "one.OBJ"}).out,
            "one.OBJ: 1 part, 4 faces, 4 vertices (OBJ, from a.stl)\n");
  EXPECT_EQ(installation.run({"translate", "a.stl", "b.obj", "-o", "two.stl"}).out,
            "two.stl: 2 parts, 8 faces, 8 vertices (STL, from a.stl, b.obj)\n");
  EXPECT_EQ(installation.run({"translate", "a.stl", "b.obj", "a.stl", "a.stl", "a.stl", "-o", "many.stl"}).out,
            "many.stl: 5 parts, 20 faces, 20 vertices (STL, from a.stl, b.obj, a.stl and 2 others)\n");
  EXPECT_EQ(installation.run({"translate", "a.stl", "-o", "named", "--to", "obj", "--quiet"}).out, "");
  EXPECT_TRUE(fs::exists(work / "named"));

  // Options reach the translators by key and by name, in any case.
  installation.run({"translate", "a.stl", "-o", "text.stl", "--in", "Length_Unit=M", "--out", "File-Format=ASCII"});
  EXPECT_TRUE(work.read(work / "text.stl").starts_with("solid"));
  const json info = json::parse(installation.run({"info", "text.stl", "--json"}).out);
  EXPECT_EQ(info["bounding_box"]["max"], json({1000, 1000, 2000}));

  // One that has no effect is told once.
  const std::string idle =
      installation.expect({"translate", "a.stl", "-o", "b2.obj", "--in", "digits=3", "--in", "DIGITS=4"}, 0).err;
  EXPECT_EQ(idle.find("--in digits: "), idle.rfind("--in ")) << idle;

  // So do the user's own defaults; a fault in them costs its line and is told, in the order of the lines.
  installation.home.write("velbase/resources/STL.rsc", "FILE_FORMAT = ascii\nNONSENSE = 1\nno equals\n");
  const Outcome own = installation.run({"translate", "b.obj", "-o", "own.stl"});
  EXPECT_TRUE(work.read(work / "own.stl").starts_with("solid"));
  EXPECT_LT(own.err.find("STL.rsc, line 2"), own.err.find("STL.rsc, line 3")) << own.err;

  // What is nearly right is told how it is right.
  installation.home.write("velbase/resources/STL.rsc", "file-format = ascii\nLENGTH_UNIT = inch # mine\n");
  installation.expect(
      {"info", "a.stl"}, 0,
      {"line 1: the key file-format is not known; it is spelled FILE_FORMAT", "comments stand on lines of their own"});

  // A value that makes no sense is such a fault, for each command that reads the file.
  installation.home.write("velbase/resources/STL.rsc", "SCALE = 0\n");
  const std::string no_scale =
      "STL.rsc, line 1: \"0\" is no value of SCALE: it must be a number greater than 0. This line was passed over.";
  installation.expect({"translate", "a.stl", "-o", "sense.obj"}, 0, {no_scale});
  installation.expect({"info", "a.stl"}, 0, {no_scale});

  // They reach the inputs of their own format only, whatever stands first.
  installation.home.write("velbase/resources/STL.rsc", "SCALE = 10\n");
  for (const bool stl_first : {true, false}) {
    installation.run({"translate", stl_first ? "a.stl" : "b.obj", stl_first ? "b.obj" : "a.stl", "-o", "both.obj"});
    const std::string both = work.read(work / "both.obj");
    EXPECT_NE(both.find("v 10 0 0\n"), std::string::npos) << both;
    EXPECT_NE(both.find("v 1 0 0\n"), std::string::npos) << both;
  }
}

TEST(Translate, ReadsAsToldWhereTheContentSaysNothing) {
  const Installation installation;
  std::string text;
  for (int i = 0; i < 100; ++i) text += "remark by somebody\n";
  installation.work.write("a", text + tetrahedron_obj);
  EXPECT_EQ(installation.run({"translate", "a", "-o", "b.stl"}).code, 3);
  for (const char* format : {"OBJ", "obj", ".obj"}) {
    installation.expect({"translate", "a", "-o", "b", "--from", format, "--to", ".stl"}, 0,
                        {"b: 1 part, 4 faces, 4 vertices (STL, from a)\n"});
    installation.expect({"info", "a", "--from", format}, 0);
  }
}

TEST(Translate, JsonHoldsTheCountsOrTheReason) {
  const Installation installation;
  installation.work.write("b\xff.stl", tetrahedron_stl);
  const json done = json::parse(installation.run({"translate", "b\xff.stl", "-o", "c.obj", "--json"}).out);
  EXPECT_EQ(done["done"], true);
  EXPECT_EQ(done["format"], "OBJ");
  EXPECT_EQ(done["inputs"][0], "b\xef\xbf\xbd.stl");
  EXPECT_EQ(done["counts"], (json{{"parts", 1}, {"solids", 0}, {"faces", 4}, {"triangles", 4}, {"vertices", 4}}));

  const json failed = json::parse(installation.expect({"translate", "missing", "-o", "c.obj", "--json"}, 4).out);
  EXPECT_EQ(failed["done"], false);
  EXPECT_EQ(failed["counts"], nullptr);
  EXPECT_EQ(failed["messages"][0]["severity"], "error");
}

TEST(Translate, InfoTellsWhatAFileHolds) {
  const Installation installation;
  installation.work.write("b.obj", "v 0 0 0\nv 2 0 0\nv 2 3 0\nv 0 3 0\nf 1 2 3 4\n");
  json info = json::parse(installation.run({"info", "b.obj", "--json"}).out);
  info.erase("library");
  EXPECT_EQ(info, json::parse(R"({"file": "b.obj", "file_type": "OBJ", "translator": "OBJ", "unit": null,
                                  "parts": 1, "solids": 0, "faces": 1, "triangles": 2, "vertices": 4,
                                  "bounding_box": {"min": [0, 0, 0], "max": [2, 3, 0]}, "occurrences": 0,
                                  "definitions": {"products": 1, "parts": 1, "solids": 0, "faces": 1,
                                                  "triangles": 2, "vertices": 4},
                                  "done": true, "messages": []})"));
  json failed = json::parse(installation.run({"info", "missing", "--json"}).out);
  EXPECT_EQ(failed["messages"][0]["severity"], "error");
  // Whatever happened, the keys are the same.
  for (const auto& [key, value] : info.items()) {
    const bool known = key == "file" || key == "done" || key == "messages";
    ASSERT_TRUE(failed.contains(key)) << key;
    EXPECT_EQ(failed[key].is_null(), !known) << key;
  }
  EXPECT_EQ(failed.size(), info.size() + 1) << "and \"library\"";
  installation.expect({"info", "b.obj"}, 0, {"triangles       2\n", "largest x y z   2 3 0\n"});

  // Coordinates have the digits that mean something, whether they were kept as floats or as doubles.
  installation.work.write("round.obj", "v -1.776e-15 0.1 59.99999999999993\nv 2 0.3 60\nv 2 3 7.123456789\nf 1 2 3\n");
  EXPECT_EQ(json::parse(installation.run({"info", "round.obj", "--json"}).out)["bounding_box"],
            json::parse(R"({"min": [0, 0.1, 7.123456789], "max": [2, 3, 60]})"));
  installation.run({"translate", "round.obj", "-o", "round.stl"});
  EXPECT_EQ(json::parse(installation.run({"info", "round.stl", "--json"}).out)["bounding_box"],
            json::parse(R"({"min": [0, 0.1, 7.12346], "max": [2, 3, 60]})"));
  installation.work.write("bad.obj", "v 0 0 0\nv 2 0 0\nv 2 3 0\nf 1 2 9\n");
  installation.expect({"info", "bad.obj"}, 4);
}

TEST(Translate, ASignalLeavesTheOldOutputAndEndsTheLineOfProgress) {
  const Installation installation;
  installation.add_library(VEL_SCRIPT_READER);
  const TemporaryDirectory& work = installation.work;
  work.write("slow", "progress 50\nnote half-way\nsleep 500\nprogress 60\nuntil_cancelled\n");
  work.write("old.stl", "old");
  const struct {
    int signal;
    bool terminal = false, quiet = false;
  } cases[] = {{SIGINT}, {SIGTERM}, {SIGINT, true}, {SIGINT, true, true}};
  for (const auto& c : cases) {
    const std::string log = work.write("log", "");
    std::vector<std::string> words{"translate", "slow", "--from", "Fixture", "-o", "old.stl", "--log", "log"};
    if (c.quiet) words.push_back("-q");
    Running running = installation.start(words, "", c.terminal);
    ASSERT_TRUE(Running::wait_for_file(log, "half-way"));
    // Part of the reading, which is half of the work; then a dot for each second without news. A slow machine may need
    // seconds, and so dots, before it too.
    const bool shows_progress = c.terminal && !c.quiet;
    ASSERT_TRUE(!shows_progress || (running.wait_for_error("half-way\r\n") && running.wait_for_error("%30%.")));
    running.signal(c.signal);
    const Outcome outcome = running.finish();
    EXPECT_EQ(outcome.code, 1);
    const std::string line_end = c.terminal ? "\r\n" : "\n";
    const std::string cancelled = "vel: error: old.stl: cancelled; nothing was written." + line_end;
    EXPECT_TRUE(c.quiet ? outcome.err == cancelled : outcome.err.ends_with(line_end + cancelled)) << outcome.err;
    EXPECT_EQ(outcome.err.find('%') != std::string::npos, shows_progress) << outcome.err;
    EXPECT_EQ(outcome.err.find('\r') != std::string::npos, c.terminal) << outcome.err;
    EXPECT_EQ(outcome.err.find('\033'), std::string::npos);
    EXPECT_EQ(TemporaryDirectory::read(log).find('%'), std::string::npos);
  }
  EXPECT_EQ(work.read(work / "old.stl"), "old");
  EXPECT_EQ(installation.files(), (std::vector<std::string>{"log", "old.stl", "slow"}));
}
