#include <gtest/gtest.h>

#include "Program.h"

namespace {

struct Case {
  std::vector<std::string> words;
  int code;
  std::string out;  // each must occur
  std::string err;
};

const std::vector<Case> cases{
    {{"--version"}, 0, "vel " VEL_VERSION "\n", ""},
    {{"--help"}, 0, "translate", ""},
    {{"translate", "--help"}, 0, "KEY=VALUE", ""},
    {{}, 2, "", "vel --help"},
    {{"translat"}, 2, "", "translat"},
    {{"list", "--bogus"}, 2, "", "--bogus"},
    {{"translate", "a.stl"}, 2, "", "vel translate --help"},
    {{"translate", "-o", "b.obj"}, 2, "", "IN"},
    {{"translate", "a.stl", "-o", ""}, 2, "", "empty"},
    {{"translate", "a.stl", "-o", "b.obj", "--in", "nothing"}, 2, "", "KEY=VALUE"},
    {{"translate", "a.stl", "-o", "b.obj", "--out", "=1"}, 2, "", "KEY=VALUE"},
    {{"translate", "-", "-o", "b.obj"}, 2, "", "name a file"},
    {{"translate", "a.stl", "-o", "-"}, 2, "", "name a file"},
    {{"info", "a.stl", "b.stl"}, 2, "", "b.stl"},
    {{"cache"}, 2, "", "vel cache --help"},
    {{"options"}, 2, "", "FORMAT"},
    {{"options", "nonsense"}, 3, "", "OBJ, STL"},
};

}  // namespace

TEST(CommandLine, TellsWrongUsageFromRight) {
  const Installation installation;
  for (const Case& c : cases) {
    std::string words;
    for (const auto& word : c.words) words += word + " ";
    const Outcome outcome = installation.run(c.words);
    EXPECT_EQ(outcome.code, c.code) << words << outcome.err;
    EXPECT_NE(outcome.out.find(c.out), std::string::npos) << words << outcome.out;
    EXPECT_NE(outcome.err.find(c.err), std::string::npos) << words << outcome.err;
    EXPECT_EQ(outcome.err.empty(), c.code == 0) << words;
    EXPECT_EQ(outcome.err.starts_with("vel: error: "), c.code != 0) << words << outcome.err;
  }
}

TEST(CommandLine, StrangeNamesAreNames) {
  const Installation installation;
  // Names that look like an option, a command, a list, and one that is no UTF-8.
  for (const std::string name : {"-x.stl", "list", "[a,b]", "b\xff.stl", "two\nlines.stl"}) {
    installation.work().write(name, tetrahedron_stl);
    const Outcome outcome = installation.run({"translate", "-o", "out.obj", "--", name});
    EXPECT_EQ(outcome.code, 0) << name << outcome.err;
    EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 1) << outcome.out;
    EXPECT_EQ(installation.run({"info", "--json", "--", name}).code, 0) << name;
  }
}

TEST(CommandLine, ResultsThatCannotBeWrittenAreAFailure) {
  const Installation installation;
  const Outcome outcome = installation.run({"list"}, "/dev/full");
  EXPECT_EQ(outcome.code, 1);
  EXPECT_NE(outcome.err.find("standard output"), std::string::npos) << outcome.err;
}
