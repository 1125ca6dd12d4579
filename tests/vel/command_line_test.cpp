#include <gtest/gtest.h>

#include "Program.h"

TEST(CommandLine, TellsWrongUsageFromRight) {
  const Installation installation;
  const std::pair<std::vector<std::string>, std::string> right[] = {{{"--version"}, "vel " VEL_VERSION "\n"},
                                                                    {{"--help"}, "translate"},
                                                                    {{"help"}, "translate"},
                                                                    {{"translate", "--help"}, "KEY=VALUE"}};
  for (const auto& [words, text] : right) EXPECT_EQ(installation.expect(words, 0, {text}).err, "");

  const struct {
    std::vector<std::string> words;
    int code;
    std::string error;
  } wrong[] = {
      {{}, 2, "vel --help"},
      {{"a.stl", "-o", "b.obj"}, 2, "no command \"a.stl\"; files are translated with `vel translate "},
      {{"--bogus"}, 2, "no option \"--bogus\". Try `vel --help`"},
      {{"list", "--bogus"}, 2, "no option \"--bogus\". Try `vel list --help`"},
      {{"--log"}, 2, "--log"},
      {{"--log", "a.log", "bogus"}, 2, "no command \"bogus\""},
      {{"--log", "/no/such/file", "list"}, 1, "/no/such/file: no log"},
      {{"info", "a.stl", "--unit", "furlong"}, 2, "\"furlong\". Units: micrometre, "},
      {{"info", "a.stl", "--unit", "unspecified"}, 2, "Units: micrometre, "},
      {{"translate", "a.stl"}, 2, "vel translate --help"},
      {{"translate", "-o", "b.obj"}, 2, "error: IN is missing"},
      {{"translate", "a.stl", "-o"}, 2, "the OUT behind it"},
      {{"translate", "a.stl", "--to", "a", "--to", "b"}, 2, "--to is given more than once"},
      {{"translate", "a.stl", "--json=x"}, 2, "--json takes no value"},
      {{"translate", "-a.stl", "-o", "b.obj"}, 2, "no option \"-a.stl\"; a file of that name goes behind `--`"},
      {{"translate", "a.stl", "-o", ""}, 2, "empty"},
      {{"translate", "a.stl", "-o", "b.obj", "--in", "nothing"}, 2, "KEY=VALUE"},
      {{"translate", "a.stl", "-o", "b.obj", "--out", "=1"}, 2, "KEY=VALUE"},
      {{"translate", "-", "-o", "b.obj"}, 2, "name a file"},
      {{"translate", "a.stl", "-o", "-"}, 2, "name a file"},
      {{"info", "no\u202e\u009bsuch.stl"}, 4, "no\\xe2\\x80\\xae\\xc2\\x9bsuch.stl"},
      {{"info", "a.stl", "b.stl"}, 2, "\"b.stl\" is a word too many"},
      {{"cache"}, 2, "vel cache --help"},
      {{"tranlsate", "a.stl"}, 2, "no command \"tranlsate\"; did you mean \"translate\"?"},
      {{"cache", "claer"}, 2, "did you mean \"clear\"?"},
      {{"list", "--quite"}, 2, "did you mean \"--quiet\"? Try"},
      {{"list", "-q=1"}, 2, "-q takes no value"},
      {{"options"}, 2, "FORMAT"},
      {{"options", "nonsense"}, 3, "OBJ, STL"},
  };
  for (const auto& c : wrong) installation.expect_error(c.words, c.code, {c.error});
}

TEST(CommandLine, StrangeNamesAreNames) {
  const Installation installation;
  installation.work.write("a.stl", tetrahedron_stl);
  // Names that look like an option, a command, a list, and one that is no UTF-8.
  for (const std::string name : {"-x.stl", "list", "[a,b]", "b\xff.stl", "two\nlines.stl"}) {
    installation.work.write(name, tetrahedron_stl);
    const std::string out = installation.expect({"translate", "a.stl", "-o", "out.obj", "--", name}, 0).out;
    EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 1) << out;
    installation.expect({"info", "--json", "--", name}, 0);
  }
}

TEST(CommandLine, ALogHoldsEveryMessageAndNothingElse) {
  const Installation installation;
  installation.work.write("a.stl", tetrahedron_stl);
  installation.work.write("part.log", "before\n");
  EXPECT_EQ(installation.run({"translate", "a.stl", "a.stl", "-o", "b.stl", "--quiet", "--log", "part.log"}).err, "");
  const Outcome missing = installation.run({"--log=part.log", "info", "missing"});
  const std::string log = TemporaryDirectory::read(installation.work / "part.log");
  EXPECT_TRUE(log.starts_with("before\nvel: note: b.stl: ")) << log;
  EXPECT_TRUE(log.ends_with("\n" + missing.err)) << log;
  EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 3) << log;

  // A log that is an input, or the output, would spoil it.
  std::filesystem::create_symlink("a.stl", installation.work / "link");
  for (const char* name : {"a.stl", "./a.stl", "link", "new.stl"}) {
    EXPECT_EQ(installation.run({"translate", "a.stl", "-o", "new.stl", "--log", name}).code, 2) << name;
  }
  EXPECT_EQ(TemporaryDirectory::read(installation.work / "a.stl"), tetrahedron_stl);
  installation.expect_error({"info", "missing", "--log", "/dev/full"}, 4, {"/dev/full: the log is incomplete"});
}

TEST(CommandLine, ResultsThatCannotBeWrittenAreAFailure) {
  const Installation installation;
  const Outcome outcome = installation.run({"list"}, "/dev/full");
  EXPECT_EQ(outcome.code, 1);
  EXPECT_NE(outcome.err.find("standard output"), std::string::npos) << outcome.err;
}
