#include <gtest/gtest.h>
#include <sys/stat.h>

#include <map>
#include <stdexcept>

#include "Registry.h"
#include "vlnAppDirMap.h"

namespace {

class Environment : public apIProcessEnvironmentOperations {
 public:
  apString get(const apString& name) const override {
    auto entry = values.find(name);
    return entry == values.end() ? apString() : entry->second;
  }
  int put(const apString& name, const apString& value) override {
    values[name] = value;
    return 1;
  }
  std::map<apString, apString> values;
};

class OpenMap : public vlnAppDirMap {
 public:
  using vlnAppDirMap::path_from_env_var;
  using vlnAppDirMap::vlnAppDirMap;
};

class AppDirMapTest : public testing::Test {
 protected:
  vlnAppMapInit initialise(const std::string& directory) {
    return map.initialise("", directory, apPathName(L"app"), &registry.app_info, registry.path(dir / "config"),
                          registry.path(dir / "temp"));
  }
  std::string at(int value) const {
    return map.get_dir(static_cast<vlnQRMDirectory>(value)).ut_path_string(registry.encoding).str();
  }

  TemporaryDirectory dir;
  Registry registry;
  Environment environment;
  OpenMap map{&environment};
};

}  // namespace

TEST_F(AppDirMapTest, DerivesTheInstallationFromTheExecutable) {
  const struct {
    const char *directory, *root;
  } cases[] = {{"/A/B/sys/exec", "/A/B"}, {"/A/B/sys/exec/", "/A/B"}, {"\\A\\B\\sys/exec\\", "\\A\\B"},
               {"/sys/exec", "/sys"},     {"exec", "exec"},           {"", ""}};
  for (const auto& c : cases) {
    initialise(c.directory);
    const std::string root = c.root;
    const std::string exec = c.directory;
    EXPECT_EQ(at(vlnDIRECTORY_SYSTEM), root.empty() ? "sys" : root + "/sys") << c.directory;
    EXPECT_EQ(at(6), exec);
  }
  initialise("/A/B/sys/exec");
  const char* expected[] = {"/A/B/sys",     "/A/B/sys/exec/lib", "/A/B/sys/exec/services", "/A/B/lib/locale",
                            nullptr,        "/A/B/file/help",    "/A/B/sys/exec",          "/A/B/file/examples",
                            nullptr,        "/A/B/sys/misc",     "/A/B/sys/exec",          "/A/B/sys/exec",
                            "/A/B/sys/exec"};
  for (int value = 0; value <= 12; ++value) {
    if (!expected[value]) continue;
    EXPECT_EQ(at(value), expected[value]) << value;
  }
  EXPECT_EQ(at(-1), "/A/B/sys/exec") << "an unknown value gives a usable directory";
  EXPECT_EQ(registry.app_info.fabrin_server_dir(), "/A/B/sys/exec");
  EXPECT_THROW(initialise("/" + std::string(511, 'x')), std::out_of_range);
  EXPECT_NO_THROW(initialise("/" + std::string(510, 'x')));
  map.initialise("c:", "\\i\\sys\\exec", apPathName(L"app"), &registry.app_info, apPathName(), apPathName());
  EXPECT_EQ(at(vlnDIRECTORY_HELP), "c:\\i/file/help");
  EXPECT_EQ(at(vlnDIRECTORY_LIBRARY), "c:\\i\\sys\\exec/lib");
}

TEST_F(AppDirMapTest, SeveralExecutableDirectoriesAreASearchPathButNoDirectory) {
  initialise("/a/sys/exec;/b/sys/exec");
  EXPECT_EQ(at(vlnDIRECTORY_EXECUTABLE_PATH), "/a/sys/exec;/b/sys/exec");
  EXPECT_EQ(at(vlnDIRECTORY_EXECUTABLE), "");
}

TEST_F(AppDirMapTest, FindsAFileInTheDirectoriesOfAKind) {
  const std::string installed = dir.write("i/sys/schemas/x", "");
  const std::string misc = dir.write("i/sys/misc/x", "");
  initialise(dir / "i/sys/exec");
  const auto found = [&](vlnQRMDirectory directory, const wchar_t* name) {
    return registry.encoding->to_utString(map.find_file(directory, apFileName(name)).string()).str();
  };
  EXPECT_EQ(found(vlnDIRECTORY_SCHEMAS, L"x"), installed);
  EXPECT_EQ(found(vlnDIRECTORY_MISC, L"X"), misc);
  EXPECT_EQ(found(vlnDIRECTORY_HELP, L"x"), "");
  const std::string users = dir.write("config/app/x", "");
  EXPECT_EQ(found(vlnDIRECTORY_SCHEMAS, L"x"), users);
}

TEST_F(AppDirMapTest, PathsAreTheirTextInTheEncodingOfTheApplication) {
  // One letter, as bytes of two encodings.
  const std::pair<const char*, std::string> cases[] = {{"UTF-8", "\xc3\xa9"}, {"ISO-8859-1", "\xe9"}};
  for (const auto& [name, letter] : cases) {
    const TemporaryDirectory fresh;
    velabsAppInfo app_info("test", "1", "test", "nobody", name);
    const apIStringEncoding* encoding = app_info.ut_encoding();
    const std::string misc = letter + "/sys/misc";
    const utString file = fresh.write(misc + "/" + letter + ".TXT", "");
    environment.put(L"QRM_HOME", encoding->to_apString(fresh / letter));
    EXPECT_EQ(
        map.initialise("", fresh / (letter + "/sys/exec"), apPathName(L"app"), &app_info, apPathName(), apPathName()),
        vlnAppMapInitOk);
    EXPECT_TRUE(std::filesystem::is_directory(fresh / (letter + "/app"))) << name;
    fresh.write(letter + "/sys/exec/lib/x.dll", "");
    EXPECT_FALSE(map.find_file(vlnDIRECTORY_LIBRARY, apFileName(L"x.dll")).invalid());
    const apFileName wanted(L"\u00e9.txt");
    const apPathName found = map.find_file(vlnDIRECTORY_MISC, wanted);
    EXPECT_EQ(encoding->to_utString(found.string()), file);
    EXPECT_TRUE(apFrustrumChooser().file_operations()->file_exists(found));
    EXPECT_EQ(map.get_dir(vlnDIRECTORY_MISC).substitute(L"no such", L"").search(wanted), found);
    vlnSearchPath from_variable;
    environment.put(L"P", encoding->to_apString(fresh / misc));
    map.path_from_env_var(L"P", from_variable, apPathName());
    EXPECT_EQ(from_variable.search(wanted), found);
    EXPECT_EQ(map.add_schema_dir(fresh / misc), 1);
    EXPECT_EQ(map.find_file(vlnDIRECTORY_SCHEMAS, wanted), found);

    const vlnSchemaDir fonts = map.get_schema_dir(vlnSchemaFonts);
    EXPECT_EQ(fonts.user_dir(), fresh / (letter + "/app/fonts"));
    EXPECT_EQ(map.copy_files(fresh / misc, fonts.user_dir(), "txt"), 1);
    EXPECT_EQ(fonts.find_user_file(letter + ".TXT"), fonts.user_dir() + "/" + letter + ".TXT");

    environment.values.clear();
    const apPathName config(encoding->to_apString(fresh / (letter + "/config")));
    map.initialise("", "/i/sys/exec", apPathName(L"app"), &app_info, config, apPathName());
    EXPECT_TRUE(std::filesystem::is_directory(fresh / (letter + "/config/app"))) << name;
    map.initialise("", "/i/sys/exec", apPathName(L"own"), &app_info, apPathName(), config);
    EXPECT_TRUE(std::filesystem::is_directory(fresh / (letter + "/config/own"))) << name;

    // A variable of the process is decoded as UTF-8, whatever its bytes are.
    environment.put(L"QRM_HOME", registry.encoding->to_apString(fresh / letter));
    map.initialise("", "/i/sys/exec", apPathName(L"app"), &app_info, apPathName(), apPathName());
    EXPECT_EQ(map.get_schema_dir(vlnSchemaFonts).user_dir(), fonts.user_dir());
  }
}

TEST_F(AppDirMapTest, WithoutAnApplicationNothingIsSet) {
  EXPECT_EQ(map.initialise("", "/i/sys/exec", apPathName(), nullptr, apPathName(), apPathName()),
            vlnAppMapInitNoAppDataDir);
  EXPECT_TRUE(map.get_dir(vlnDIRECTORY_SYSTEM).invalid());
  EXPECT_EQ(map.get_schema_dir(vlnSchemaFonts).user_dir(), "");
  dir.write("from/a.x", "copied");
  EXPECT_EQ(map.copy_files(dir / "from", dir / "to", "x"), 1);
  EXPECT_EQ(TemporaryDirectory::read(dir / "to/a.x"), "copied");
}

TEST_F(AppDirMapTest, TheFirstUsableBaseHoldsTheApplicationData) {
  std::filesystem::create_directories(dir.path() / "home");
  std::filesystem::create_directories(dir.path() / "temp");
  environment.put(L"QRM_HOME", registry.encoding->to_apString(dir / "home"));
  EXPECT_EQ(initialise("/i/sys/exec"), vlnAppMapInitOk);
  EXPECT_EQ(at(vlnDIRECTORY_APP_DATA), dir / "home/app");
  EXPECT_EQ(at(vlnDIRECTORY_SCHEMAS), dir / "home/app" + ";/i/sys/schemas");
  EXPECT_EQ(std::filesystem::status(dir / "home/app").permissions(), std::filesystem::perms::owner_all);

  environment.put(L"QRM_HOME", registry.encoding->to_apString(dir / "no such"));
  EXPECT_EQ(initialise("/i/sys/exec"), vlnAppMapInitOk);
  EXPECT_EQ(at(vlnDIRECTORY_APP_DATA), dir / "config/app") << "made, unlike a QRM_HOME that does not exist";
  EXPECT_FALSE(std::filesystem::exists(dir / "no such"));

  environment.values.clear();
  std::filesystem::remove_all(dir / "config");
  dir.write("config", "in the way");
  EXPECT_EQ(initialise("/i/sys/exec"), vlnAppMapInitOk);
  EXPECT_EQ(at(vlnDIRECTORY_APP_DATA), dir / "temp/app");

  std::filesystem::remove_all(dir / "temp");
  OpenMap fresh(&environment);
  EXPECT_EQ(fresh.initialise("", "/i/sys/exec", apPathName(L"app"), &registry.app_info, registry.path(dir / "config"),
                             registry.path(dir / "temp")),
            vlnAppMapInitNoAppDataDir);
  EXPECT_TRUE(fresh.get_dir(vlnDIRECTORY_APP_DATA).invalid());
  EXPECT_FALSE(fresh.get_dir(vlnDIRECTORY_SYSTEM).invalid());
  EXPECT_EQ(fresh.add_schema_dir("/x"), 0);
  EXPECT_EQ(fresh.get_schema_dir(vlnSchemaResources).user_dir(), "") << "never a relative path";
}

TEST_F(AppDirMapTest, CopiesFilesOfOneExtension) {
  for (const char* name : {"from/a.rsc", "from/b.txt", "more/a.rsc", "to/a.rsc", "from/bare", "from/.dot", "from/end."})
    dir.write(name, name);
  initialise("/i/sys/exec");
  const utString from = dir / "from" + ";" + (dir / "more");
  EXPECT_EQ(map.copy_files(from, dir / "to", "rsc"), 1);
  EXPECT_EQ(TemporaryDirectory::read(dir / "to/a.rsc"), "from/a.rsc");
  EXPECT_FALSE(std::filesystem::exists(dir / "to/b.txt"));
  EXPECT_EQ(map.copy_files(from, dir / "made", ""), 1);
  EXPECT_EQ(TemporaryDirectory::read(dir / "made/bare"), "from/bare");
  EXPECT_EQ(map.copy_files(from, dir / "made", "dot"), 1);
  EXPECT_EQ(TemporaryDirectory::read(dir / "made/.dot"), "from/.dot");
  EXPECT_EQ(map.copy_files(from, dir / "made", "*"), 1);
  EXPECT_EQ(TemporaryDirectory::read(dir / "made/end"), "from/end.");
  EXPECT_EQ(map.copy_files(from, dir / "no/such", "rsc"), 0);
  EXPECT_EQ(map.copy_files(from, dir / "from/b.txt", "rsc"), 0) << "a file is in the way";
}

TEST_F(AppDirMapTest, ReadsSearchPathsFromTheEnvironment) {
  vlnSearchPath path;
  map.path_from_env_var(L"P", path, apPathName(L"/e"));
  EXPECT_TRUE(path.invalid());
  environment.put(L"P", L"<exe_dir>/a;/b");
  map.path_from_env_var(L"P", path, apPathName(L"/e"));
  EXPECT_EQ(path.ut_path_string(registry.encoding), "/e/a;/b");
  environment.put(L"P", L"");
  map.path_from_env_var(L"P", path, apPathName(L"/e"));
  EXPECT_EQ(path.ut_path_string(registry.encoding), "/e/a;/b") << "an empty variable leaves it alone";
}
