#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

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
  dir.make_pipe("pipe");
  ASSERT_EQ(symlink("loop", (dir / "loop").c_str()), 0);
  const std::string directory = dir.path().string();
  const std::pair<vlnPathListError, std::vector<std::string>> cases[] = {
      {vlnPathIsFile, {file, file + "/", "/dev/null"}},
      {vlnPathIsDirectory, {directory, directory + "/", directory + "\\"}},
      {vlnPathNotFileOrDir, {dir / "pipe"}},
      {vlnPathNotFound, {dir / "none", file + "/below", "/"}},
      {vlnPathTooManyLinks, {dir / "loop"}},
      {vlnPathNameTooLong, {"/" + std::string(5000, 'x')}}};
  PathList list("");
  for (const auto& [expected, paths] : cases) {
    for (const std::string& path : paths) EXPECT_EQ(list.check_access(path.c_str()), expected) << path;
  }
}

TEST(PathList, ReportsAPathThatMayNotBeSeen) {
  const TemporaryDirectory dir;
  const std::string hidden = dir.write("closed/hidden", "");
  chmod((dir / "closed").c_str(), 0);
  chmod(dir.path().c_str(), 0711);
  // The superuser may see everything.
  const uid_t user = geteuid();
  ASSERT_TRUE(user != 0 || seteuid(65534) == 0);
  const vlnPathListError error = PathList("").check_access(hidden.c_str());
  ASSERT_TRUE(user != 0 || seteuid(0) == 0);
  chmod((dir / "closed").c_str(), 0700);
  EXPECT_EQ(error, vlnPathNoPermission);
}

TEST(PathList, NullPointersNameNothing) {
  PathList list("/");
  EXPECT_FALSE(list.search(nullptr) || list.search_dir(nullptr) || list.in_list(nullptr));
  EXPECT_TRUE(list.with_extension(nullptr).empty());
  EXPECT_EQ(PathList::taken(PathList::expand_list(nullptr, "/e")), "");
  EXPECT_FALSE(PathList(nullptr).in_list(""));
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

  const std::filesystem::path here = std::filesystem::current_path();
  std::filesystem::current_path(dir.path());
  PathList local(".;more;./lib");
  EXPECT_EQ(local.file("name"), "more/name");
  EXPECT_EQ(local.directory("lib"), "lib") << "in the current directory the name alone";
  EXPECT_EQ(PathList("./lib").file("name"), "./lib/name");
  std::filesystem::current_path(here);
  for (const char* path : {"/a", "\\a", "~a", "c:/a", "c:~"}) EXPECT_TRUE(list.absolute_path(path)) << path;
  for (const char* path : {"c:a", "a/b", "", "1:/"}) EXPECT_FALSE(list.absolute_path(path)) << path;
}

TEST(PathList, GathersOneExtensionAndEarlierDirectoriesHideLaterOnes) {
  const TemporaryDirectory dir;
  for (const char* name : {"a/a.txt", "a/b.txt.bak", "a/plain", "b/a.txt", "b/c.txt", "b/sub.txt/x", "b/.txt"}) {
    dir.write(name, "");
  }
  dir.make_pipe("a/pipe.txt");
  PathList list((dir / "a" + ";" + (dir / "none") + ";" + (dir / "b")).c_str());
  EXPECT_EQ(list.with_extension("txt"), (std::vector<std::string>{dir / "a/a.txt", dir / "b/.txt", dir / "b/c.txt"}));
  EXPECT_EQ(list.with_extension(""), std::vector<std::string>{dir / "a/plain"});
}

TEST(PathList, ExtensionsAreMatchedWithoutCaseAndWithWildcards) {
  const TemporaryDirectory dir;
  for (const char* name : {"A.TXT", "b.tar.gz", "c.t1", "d.t[1", "txt", "e.\xc3\x89", "f.a-b-c"}) dir.write(name, "");
  PathList list(dir.path().c_str());
  const std::pair<const char*, std::vector<std::string>> cases[] = {
      {"txt", {"A.TXT"}},
      {"Txt", {"A.TXT"}},
      {"\xc3\xa9", {"e.\xc3\x89"}},
      {"gz", {"b.tar.gz"}},
      {"t?", {"c.t1"}},
      {"t??", {"A.TXT", "d.t[1"}},
      {"t*", {"A.TXT", "b.tar.gz", "c.t1", "d.t[1"}},
      {"*", {"A.TXT", "b.tar.gz", "c.t1", "d.t[1", "e.\xc3\x89", "f.a-b-c"}},
      {"t*1", {"c.t1", "d.t[1"}},
      {"?*x*t*", {"A.TXT"}},
      {"a*-c", {"f.a-b-c"}},
      {"t[1", {"d.t[1"}},
      {"*.gz", {"b.tar.gz"}},
      {"tx", {}},
      {"?txt", {}},
      {"txt?", {}}};
  for (const auto& [extension, names] : cases) {
    std::vector<std::string> paths;
    for (const std::string& name : names) paths.push_back(dir / name);
    EXPECT_EQ(list.with_extension(extension), paths) << extension;
  }
}

TEST(PathList, TextHelpers) {
  const struct {
    const char *list, *exe_dir, *expanded;
  } expansions[] = {{"<exe_dir>/a;x/<exe_dir>", "/e", "/e/a;x//e"},
                    {"<exe_dir>", "<exe_dir>!", "<exe_dir>!"},
                    {"<exe_dir>dir>;<exe_dir>", "<exe_dir><exe_", "<exe_dir><exe_dir>;<exe_dir><exe_"},
                    {"<exe_<exe_dir>dir>/<EXE_DIR>", "", "/<EXE_DIR>"},
                    {"<<exe_dir>", "exe_dir>", "exe_dir>"},
                    {"<exe_dir>>>", "a<exe_dir", "aaa<exe_dir"},
                    {"", "/e", ""}};
  for (const auto& c : expansions) {
    EXPECT_EQ(PathList::taken(PathList::expand_list(c.list, c.exe_dir)), c.expanded) << c.list;
  }
  // A directory that would make placeholders for ever.
  const std::string endless = "<ex<exe_dir>e_dir>";
  EXPECT_NE(PathList::taken(PathList::expand_list(endless.c_str(), "e_dir>e_dir><ex<ex")), "");
  PathList list("");
  std::string text = "a/b/c";
  EXPECT_STREQ(list.path_verify(text.data(), 2), "a\\b/c");
  for (const char* valid : {"c:/a;d:/b", "/a;/b", "a;b:"}) EXPECT_TRUE(list.valid_colon_check(valid)) << valid;
  for (const char* bad : {":a", "/a:/b", "ab:c"}) EXPECT_FALSE(list.valid_colon_check(bad)) << bad;
}
