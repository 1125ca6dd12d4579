#include <gtest/gtest.h>

#include "CpuTime.h"
#include "Registry.h"
#include "vlnExtensionIT.h"
#include "vlnSearchPath.h"

namespace {

std::vector<std::string> entries(const vlnSearchPath& path) {
  std::vector<std::string> result;
  auto directories = path.directory_paths();
  while (++directories) result.push_back(Registry().text(directories()));
  return result;
}

vlnSearchPath path_of(const std::string& text) {
  return vlnSearchPath(Registry().encoding->to_apString(text));
}

using Strings = std::vector<std::string>;

}  // namespace

TEST(SearchPath, SplitsAndJoins) {
  const struct {
    const char* text;
    Strings directories;
    const char* joined;
  } cases[] = {{"", {}, ""},
               {"a;b;", {"a", "b"}, "a;b"},
               {"a;;b", {"a", "", "b"}, "a;;b"},
               {";a", {"", "a"}, ";a"},
               {"/x y:z", {"/x y:z"}, "/x y:z"},
               {";", {""}, ""}};
  for (const auto& c : cases) {
    const vlnSearchPath path = path_of(c.text);
    EXPECT_FALSE(path.invalid());
    EXPECT_EQ(entries(path), c.directories) << c.text;
    EXPECT_EQ(path.ut_path_string(Registry().encoding), c.joined);
  }
  EXPECT_TRUE(vlnSearchPath().invalid());
  EXPECT_TRUE(vlnSearchPath().compare(path_of("")));
}

TEST(SearchPath, SplittingTakesLinearTime) {
  const auto seconds = [](int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += "/a/directory;";
    return cpu_seconds([&] { path_of(text); });
  };
  EXPECT_LT(seconds(40000), 12 * std::max(seconds(10000), 1e-3)) << "four times as many";
}

TEST(SearchPath, AppendsComparesAndGivesASingleDirectory) {
  const vlnSearchPath joined = path_of("a").append(path_of("a;b"));
  EXPECT_EQ(entries(joined), (Strings{"a", "a", "b"}));
  EXPECT_TRUE(path_of("a").append(vlnSearchPath()).invalid() && !joined.invalid());
  const vlnSearchPath unset_first = vlnSearchPath().append(path_of("a"));
  EXPECT_TRUE(unset_first.invalid() && entries(unset_first) == Strings{"a"});
  EXPECT_FALSE(path_of("a;b").compare(path_of("b;a")) || path_of("a").compare(path_of("a/")));

  bool not_single = true;
  EXPECT_TRUE(path_of("a").directory_path(not_single) == apPathName(L"a") && !not_single);
  EXPECT_TRUE(joined.directory_path(not_single).invalid() && not_single);
  not_single = false;
  EXPECT_TRUE(path_of("").directory_path(not_single).invalid() && not_single);
}

TEST(SearchPath, Substitutes) {
  const vlnSearchPath path = path_of("<exe_dir>;<exe_dir>//;<exe_dir>/p;<exe_dir>//p;x/<exe_dir>;<EXE_DIR>")
                                 .exe_substitute(apPathName(L"/bin"));
  EXPECT_EQ(entries(path), (Strings{"/bin", "/bin", "/bin/p", "/bin/p", "x/<exe_dir>", "<EXE_DIR>"}));
  EXPECT_EQ(entries(path_of("aXbX;X").substitute(L"X", L"XX")), (Strings{"aXXbXX", "XX"}));
  EXPECT_EQ(entries(path_of("ab").substitute(L"", L"x")), Strings{"ab"});
  for (const bool set : {false, true}) {
    const vlnSearchPath given = set ? path_of("<exe_dir>") : vlnSearchPath();
    EXPECT_EQ(given.exe_substitute(apPathName(L"/bin")).invalid(), !set);
    EXPECT_EQ(given.substitute(L"a", L"b").invalid(), !set);
  }
}

TEST(SearchPath, TheFirstDirectoryThatListsANameWins) {
  const TemporaryDirectory dir;
  for (const char* name : {"two/name.txt", "two/sub/inner.txt", "three/Name.TXT", "three/name.txt"})
    dir.write(name, "");
  const vlnSearchPath path = path_of(dir / "one" + ";" + (dir / "two") + ";" + (dir / "three"));
  const auto found = [&](const wchar_t* name) { return Registry().text(path.search(apFileName(name))); };
  EXPECT_EQ(found(L"name.txt"), dir / "two/name.txt");
  EXPECT_EQ(found(L"NAME.txt"), dir / "two/name.txt") << "the spelling on disk";
  EXPECT_EQ(found(L"sub"), dir / "two/sub") << "directories are found too";
  for (const wchar_t* none : {L"sub/inner.txt", L"../two/name.txt", L"missing"}) EXPECT_EQ(found(none), "");
  const vlnSearchPath third = path_of(dir / "three");
  EXPECT_EQ(third.search(apFileName(L"Name.TXT")).basename().string(), apString(L"Name.TXT"));
  EXPECT_EQ(third.search(apFileName(L"name.txt")).basename().string(), apString(L"name.txt"));
}

TEST(TranslatorSearchPath, ListsOneExtensionAndTellsMissingDirectories) {
  const TemporaryDirectory dir;
  for (const char* name : {"a/b.DLL", "a/a.dll", "a/c.so", "c/dll", "c/.dll"}) dir.write(name, "");
  const Registry registry;
  bool missing = false;
  const auto files =
      registry.search_path(dir / "a" + ";" + (dir / "b") + ";" + (dir / "c")).find_by_extension(L"dll", missing);
  EXPECT_TRUE(missing);
  Strings names;
  for (const auto& file : files) names.push_back(registry.text(file));
  EXPECT_EQ(names, (Strings{dir / "a/a.dll", dir / "a/b.DLL", dir / "c/.dll"}));
  registry.search_path(dir / "a").find_by_extension(L"dll", missing);
  EXPECT_FALSE(missing);
}

TEST(ExtensionIT, MarkedExtensionsComeFirstTheLastMarkedBeforeAll) {
  const std::pair<Strings, Strings> cases[] = {
      {{"igs", "*iges"}, {"iges", "igs"}}, {{"*a", "*b"}, {"b", "a"}}, {{"a", "b"}, {"a", "b"}}, {{}, {}}};
  for (const auto& [given, expected] : cases) {
    utStringcoSet set;
    for (const auto& extension : given) set.add(extension);
    Strings ordered;
    vlnExtensionIT extensions(&set);
    while (++extensions) ordered.push_back(extensions().str());
    EXPECT_EQ(ordered, expected);
    EXPECT_EQ(++extensions, 0);
  }
}
