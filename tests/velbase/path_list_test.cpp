#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "TemporaryDirectory.h"
#include "vlnPathList.h"

namespace {

// The older interface with its protected side open, and results as values.
class PathList : public vlnPathList {
 public:
  using vlnPathList::absolute_path;
  using vlnPathList::check_access;
  using vlnPathList::in_list;
  using vlnPathList::path_verify;
  using vlnPathList::valid_colon_check;
  using vlnPathList::vlnPathList;

  static std::string taken(char* text) {
    const std::string value = text ? text : "none";
    std::free(text);
    return value;
  }
  std::string file(const std::string& name) { return taken(search(name.c_str())); }
  std::string directory(const std::string& name) { return taken(search_dir(name.c_str())); }
  std::vector<std::string> with_extension(const char* extension) {
    utStringcoDynArr found;
    search_by_extension(found, extension);
    std::vector<std::string> result;
    for (const utString& path : found) result.push_back(path.str());
    return result;
  }
};

}  // namespace

TEST(PathList, DropsEmptyAndRepeatedEntriesAndExpandsHome) {
  PathList list(";a;;a;b;");
  EXPECT_TRUE(list.in_list("a") && list.in_list("b"));
  EXPECT_FALSE(list.in_list("") || list.in_list("A"));
  const char* home = std::getenv("HOME");
  const std::string before = home ? home : "";
  setenv("HOME", "/home/u", 1);
  PathList expanded("~/x;~x");
  EXPECT_TRUE(expanded.in_list("/home/u/x") && expanded.in_list("/home/ux"));
  unsetenv("HOME");
  EXPECT_FALSE(PathList("~/x").in_list("~/x"));
  setenv("HOME", before.c_str(), 1);
}

TEST(PathList, TellsWhatAPathIs) {
  const TemporaryDirectory dir;
  const std::string file = dir.write("f", "");
  ASSERT_EQ(mkfifo((dir / "pipe").c_str(), 0600), 0);
  ASSERT_EQ(symlink("loop", (dir / "loop").c_str()), 0);
  const struct {
    std::string path;
    vlnPathListError expected;
  } cases[] = {{file, vlnPathIsFile},
               {"/dev/null", vlnPathIsFile},
               {dir.path().string(), vlnPathIsDirectory},
               {dir.path().string() + "/", vlnPathIsDirectory},
               {dir.path().string() + "\\", vlnPathIsDirectory},
               {dir / "pipe", vlnPathNotFileOrDir},
               {dir / "none", vlnPathNotFound},
               {file + "/below", vlnPathNotFound},
               {dir / "loop", vlnPathTooManyLinks},
               {"/" + std::string(5000, 'x'), vlnPathNameTooLong},
               {"/", vlnPathNotFound}};
  PathList list("");
  for (const auto& c : cases) EXPECT_EQ(list.check_access(c.path.c_str()), c.expected) << c.path;
}

TEST(PathList, SearchesRelativeNamesThroughTheListAndAbsoluteOnesAsTheyStand) {
  const TemporaryDirectory dir;
  dir.write("lib/name", "");
  dir.write("more/name", "");
  dir.write("more/sub/x", "");
  PathList list((dir / "missing" + ";" + (dir / "lib") + ";" + (dir / "more")).c_str());
  EXPECT_EQ(list.file("name"), dir / "lib/name");
  EXPECT_EQ(list.file("sub"), "none");
  EXPECT_EQ(list.directory("sub"), dir / "more/sub");
  EXPECT_EQ(list.file(dir / "more/name"), dir / "more/name");
  EXPECT_EQ(list.file("/name"), "none") << "absolute: the list is not consulted";
  const struct {
    const char* path;
    int absolute;
  } cases[] = {{"/a", 1}, {"\\a", 1}, {"~a", 1}, {"c:/a", 1}, {"c:~", 1}, {"c:a", 0}, {"a/b", 0}, {"", 0}, {"1:/", 0}};
  for (const auto& c : cases) EXPECT_EQ(list.absolute_path(c.path), c.absolute) << c.path;
}

TEST(PathList, GathersOneExtensionAndEarlierDirectoriesHideLaterOnes) {
  const TemporaryDirectory dir;
  for (const char* name : {"a/a.txt", "a/b.txt.bak", "a/plain", "b/a.txt", "b/c.txt", "b/sub.txt/x", "b/.txt"}) {
    dir.write(name, "");
  }
  PathList list((dir / "a" + ";" + (dir / "none") + ";" + (dir / "b")).c_str());
  EXPECT_EQ(list.with_extension("txt"), (std::vector<std::string>{dir / "a/a.txt", dir / "b/.txt", dir / "b/c.txt"}));
  EXPECT_EQ(list.with_extension(""), std::vector<std::string>{dir / "a/plain"});
}

TEST(PathList, TextHelpers) {
  EXPECT_EQ(PathList::taken(PathList::expand_list("<exe_dir>/a;x/<exe_dir>", "/e")), "/e/a;x//e");
  EXPECT_EQ(PathList::taken(PathList::expand_list("<exe_dir>", "<exe_dir>!")), "<exe_dir>!");
  PathList list("");
  std::string text = "a/b/c";
  EXPECT_STREQ(list.path_verify(text.data(), 2), "a\\b/c");
  const struct {
    const char* list;
    int valid;
  } cases[] = {{"c:/a;d:/b", 1}, {"/a;/b", 1}, {":a", 0}, {"/a:/b", 0}, {"ab:c", 0}, {"a;b:", 1}};
  for (const auto& c : cases) EXPECT_EQ(list.valid_colon_check(c.list), c.valid) << c.list;
}
