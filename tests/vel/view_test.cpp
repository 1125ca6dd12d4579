#include <gtest/gtest.h>
#include <sys/stat.h>

#include <nlohmann/json.hpp>

#include "Program.h"

namespace fs = std::filesystem;

namespace {

// An installation that can show models.
class Showing : public Installation {
 public:
  Showing() {
    for (const char* name : {"viewerwriter", "pngwriter"}) {
      const std::string file = std::string(VEL_BUILT_ROOT "/sys/exec/lib/") + name + ".dll";
      if (fs::exists(file)) add_library(file);
    }
    work.write("a.stl", tetrahedron_stl);
    work.write("two\nlines.obj", tetrahedron_obj);
  }

  Outcome view(std::vector<std::string> words) const {
    words.insert(words.begin(), "view");
    return run(words);
  }

  std::size_t temporary_count() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(temporary.path()), {}));
  }
};

mode_t mode_of(const fs::path& file) {
  struct stat state = {};
  return stat(file.c_str(), &state) == 0 ? state.st_mode & 0777 : 0;
}

}  // namespace

TEST(View, PageStandsInAPrivatePlaceAndItsNameIsPrinted) {
  const Showing installation;
  for (const auto& [file, name] : {std::pair{"a.stl", "a.html"}, std::pair{"two\nlines.obj", "two_lines.html"}}) {
    const Outcome outcome = installation.view({file});
    ASSERT_EQ(outcome.code, 0) << outcome.err;
    ASSERT_TRUE(outcome.out.ends_with('\n'));
    const fs::path page = outcome.out.substr(0, outcome.out.size() - 1);
    EXPECT_EQ(page.filename(), name);
    EXPECT_EQ(mode_of(page.parent_path()), 0700u);
    EXPECT_NE(TemporaryDirectory::read(page).find("\"title\":\""), std::string::npos);
  }
  EXPECT_EQ(installation.temporary_count(), 2u);
  EXPECT_EQ(installation.files(), (std::vector<std::string>{"a.stl", "two\nlines.obj"}));
}

TEST(View, WritesWhatIsAskedForAndNothingElse) {
  const Showing installation;
  const bool has_png = fs::exists(installation.library("pngwriter.dll"));
  EXPECT_EQ(installation.view({"a.stl", "-o", "p.html", "--in", "length-unit=inch"}).out, "p.html\n");
  EXPECT_NE(TemporaryDirectory::read(installation.work / "p.html").find("{\"title\":\"a.stl\",\"unit\":\"in\""),
            std::string::npos);

  const Outcome picture = installation.expect({"view", "a.stl", "--png", "p.png", "40x30"}, has_png ? 0 : 3);
  EXPECT_EQ(picture.out, has_png ? "p.png\n" : "");
  if (has_png) {
    installation.work.write("line.obj", std::string(tetrahedron_obj) + "l 1 2\n");
    const Outcome both = installation.view({"line.obj", "--png", "q.png", "40x30", "-o", "q.html", "--json"});
    const auto told = nlohmann::json::parse(both.out);
    EXPECT_EQ(told["png"], "q.png");
    EXPECT_EQ(told["page"], "q.html");
    EXPECT_EQ(told["counts"]["triangles"], 4);
    EXPECT_EQ(told["messages"].size(), 1u) << both.out;
    EXPECT_TRUE(fs::exists(installation.work / "q.png") && fs::exists(installation.work / "q.html"));
    EXPECT_EQ(installation.view({"a.stl", "--png", "q.png", "40x30", "-q"}).out, "");
    // Without a size the word behind the picture's name is a file like others.
    installation.expect({"view", "--png", "r.png", "a.stl"}, 0);
    EXPECT_EQ(TemporaryDirectory::read(installation.work / "r.png").substr(16, 8),
              std::string("\0\0\3\x20\0\0\2\x58", 8));
    EXPECT_EQ(installation.view({"a.stl", "--png=r.png", "--", "a.stl"}).out, "r.png\n");
  }
  EXPECT_EQ(installation.temporary_count(), 0u);
}

TEST(View, OptionsReachTheOutputThatTakesThem) {
  const Showing installation;
  const auto page = [&] { return TemporaryDirectory::read(installation.work / "p.html"); };
  installation.expect({"view", "a.stl", "-o", "p.html", "--out", "title=Mine"}, 0);
  EXPECT_NE(page().find("{\"title\":\"Mine\""), std::string::npos);
  if (!fs::exists(installation.library("pngwriter.dll"))) return;

  installation.expect_error({"view", "a.stl", "-o", "q.html", "--out", "view=top"}, 2,
                            {"--out view: Viewer has no such option"});
  const auto picture_of = [&](const char* option) {
    installation.expect(
        {"view", "a.stl", "--png", "p.png", "40x30", "-o", "p.html", "--out", "title=Both", "--out", option}, 0);
    return TemporaryDirectory::read(installation.work / "p.png");
  };
  EXPECT_NE(picture_of("view=top"), picture_of("view=front"));
  EXPECT_NE(page().find("{\"title\":\"Both\""), std::string::npos);
  installation.expect_error({"view", "a.stl", "--png", "r.png", "-o", "r.html", "--out", "digits=3"}, 2, {});
  EXPECT_FALSE(fs::exists(installation.work / "r.png"));
}

TEST(View, ItsFormatsAreFormatsLikeOthers) {
  const Showing installation;
  EXPECT_EQ(installation.run({"translate", "a.stl", "-o", "page", "--to", "html"}).out.find("page: "), 0u);
  EXPECT_EQ(installation.run({"options", "html"}).out, installation.run({"options", "Viewer"}).out);
  EXPECT_NE(installation.run({"options", "nonsense"}).err.find(", Viewer."), std::string::npos);
  if (!fs::exists(installation.library("pngwriter.dll"))) return;

  // The options that are checked before anything is read are those that the writer takes.
  const auto options = nlohmann::json::parse(installation.run({"options", "png", "--json"}).out)["options"];
  std::vector<std::pair<std::string, int>> values{{"view=above", 2},          {"background=red", 2},
                                                  {"background=#1234567", 2}, {"background=#12345G", 2},
                                                  {"background=#aB1290", 0},  {"background=Transparent", 0}};
  for (const auto& option : options) {
    if (option["name"] != "view") continue;
    for (const std::string view : option["allowed"]) values.emplace_back("view=" + view, 0);
  }
  EXPECT_EQ(values.size(), 13u);
  for (const auto& [value, code] : values) {
    installation.expect({"translate", "a.stl", "-o", "p.png", "--out", value, "--out", "width=9"}, code);
  }
}

TEST(View, FailuresLeaveNothing) {
  const Showing installation;
  installation.work.write("cut.stl", std::string(tetrahedron_stl).substr(0, 200));
  const std::pair<std::vector<std::string>, int> cases[] = {
      {{"view", "missing.stl"}, 4},
      {{"view", "cut.stl"}, 4},
      {{"view", "cut.stl", "-o", "p.html"}, 4},
      {{"view", "a.stl", "-o", "none/p.html"}, 1},
      {{"view", "a.stl", "--png", "p.png", "5x5", "-o", "none/p"}, 1},
      {{"view", "a.stl", "-o", "a.stl"}, 1},
      {{"view", "a.stl", "-o", "p.png"}, 2},
      {{"view", "a.stl", "--png", "p.jpg", "5x5"}, 2},
      {{"view", "a.stl", "--png", "p.png", "5x5", "-o", "p.png2"}, 2},
      {{"view", "a.stl", "-o", ""}, 2},
      {{"view", "a.stl", "--png"}, 2},
      {{"view", "a.stl", "--png", "--json"}, 2},
      {{"view", "a.stl", "--png", "p.png", "0x5"}, 2},
      {{"view", "a.stl", "--png", "p.png", "5x16385"}, 2},
      {{"view", "a.stl", "--png", "p.png", "5 x5"}, 2},
      {{"view", "a.stl", "--png", "p.png", "99999999999999999999x5"}, 2},
      {{"view", "a.stl", "--png", "p", "5x5", "-o", "p"}, 2},
      {{"view", "a.stl", "--in", "SCALE=0"}, 2}};
  for (const auto& [words, code] : cases) installation.expect_error(words, code, {});
  EXPECT_EQ(installation.temporary_count(), 0u);
  EXPECT_EQ(installation.files(), (std::vector<std::string>{"a.stl", "cut.stl", "two\nlines.obj"}));
}
