#include <gtest/gtest.h>

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
  std::string found(vlnQRMDirectory directory, const wchar_t* name) {
    return registry.text(map.find_file(directory, apFileName(name)));
  }
  void put(const wchar_t* name, const std::string& value) {
    environment.put(name, registry.encoding->to_apString(value));
  }

  TemporaryDirectory dir;
  Registry registry;
  Environment environment;
  OpenMap map{&environment};
};

class SchemaDirTest : public AppDirMapTest {
 protected:
  SchemaDirTest() { initialise(dir / "i/sys/exec"); }
};

}  // namespace

TEST_F(AppDirMapTest, DerivesTheInstallationFromTheExecutable) {
  const std::pair<const char*, const char*> cases[] = {
      {"/A/B/sys/exec", "/A/B/sys"}, {"/A/B/sys/exec/", "/A/B/sys"}, {"\\A\\B\\sys/exec\\", "\\A\\B/sys"},
      {"/sys/exec", "/sys/sys"},     {"exec", "exec/sys"},           {"", "sys"}};
  for (const auto& [directory, system] : cases) {
    initialise(directory);
    EXPECT_EQ(at(vlnDIRECTORY_SYSTEM), system) << directory;
    EXPECT_EQ(at(vlnDIRECTORY_EXECUTABLE_PATH), directory);
  }
  initialise("/A/B/sys/exec");
  const char* expected[] = {"sys",       "sys/exec/lib", "sys/exec/services", "lib/locale", nullptr,
                            "file/help", "sys/exec",     "file/examples",     nullptr,      "sys/misc",
                            "sys/exec",  "sys/exec",     "sys/exec"};
  for (int value = 0; value <= 12; ++value) {
    if (!expected[value]) continue;
    EXPECT_EQ(at(value), std::string("/A/B/") + expected[value]) << value;
  }
  EXPECT_EQ(at(-1), "/A/B/sys/exec") << "an unknown value gives a usable directory";
  EXPECT_EQ(registry.app_info.fabrin_server_dir(), "/A/B/sys/exec");
  EXPECT_THROW(initialise("/" + std::string(511, 'x')), std::out_of_range);
  EXPECT_NO_THROW(initialise("/" + std::string(510, 'x')));
  map.initialise("c:", "\\i\\sys\\exec", apPathName(L"app"), &registry.app_info, apPathName(), apPathName());
  EXPECT_EQ(at(vlnDIRECTORY_HELP), "c:\\i/file/help");
  EXPECT_EQ(at(vlnDIRECTORY_LIBRARY), "c:\\i\\sys\\exec/lib");
  initialise("/a/sys/exec;/b/sys/exec");
  EXPECT_EQ(at(vlnDIRECTORY_EXECUTABLE_PATH), "/a/sys/exec;/b/sys/exec");
  EXPECT_EQ(at(vlnDIRECTORY_EXECUTABLE), "") << "a search path is no directory";
}

TEST_F(AppDirMapTest, FindsAFileInTheDirectoriesOfAKind) {
  const std::string installed = dir.write("i/sys/schemas/x", "");
  const std::string misc = dir.write("i/sys/misc/x", "");
  initialise(dir / "i/sys/exec");
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
    put(L"QRM_HOME", fresh / letter);
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
  put(L"QRM_HOME", dir / "home");
  EXPECT_EQ(initialise("/i/sys/exec"), vlnAppMapInitOk);
  EXPECT_EQ(at(vlnDIRECTORY_APP_DATA), dir / "home/app");
  EXPECT_EQ(at(vlnDIRECTORY_SCHEMAS), dir / "home/app" + ";/i/sys/schemas");
  EXPECT_EQ(std::filesystem::status(dir / "home/app").permissions(), std::filesystem::perms::owner_all);

  put(L"QRM_HOME", dir / "no such");
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
  for (const wchar_t* value : {L"<exe_dir>/a;/b", L""}) {
    environment.put(L"P", value);
    map.path_from_env_var(L"P", path, apPathName(L"/e"));
    EXPECT_EQ(path.ut_path_string(registry.encoding), "/e/a;/b") << "an empty variable leaves it alone";
  }
}

TEST_F(SchemaDirTest, TheUsersCopyWins) {
  const std::string installed = dir.write("i/sys/schemas/resources/STL.rsc", "");
  dir.write("i/sys/schemas/resources/sub/x", "");
  vlnSchemaDir resources = map.get_schema_dir(vlnSchemaResources);
  EXPECT_EQ(resources.user_dir(), dir / "config/app/resources");
  EXPECT_EQ(resources.find_file("STL.rsc"), installed);
  EXPECT_EQ(resources.find_user_file("STL.rsc"), "");
  EXPECT_EQ(resources.find_file("none"), "");
  EXPECT_EQ(resources.find_dir("sub"), dir / "i/sys/schemas/resources/sub");
  EXPECT_EQ(resources.find_dir("STL.rsc"), "") << "a file is no directory";

  const std::string users = dir.write("config/app/resources/STL.rsc", "");
  EXPECT_EQ(resources.find_file("STL.rsc"), users);
  EXPECT_EQ(resources.find_installation_file("STL.rsc"), installed);
  dir.write("config/app/resources/sub/y", "");
  EXPECT_EQ(resources.find_dir("sub"), dir / "config/app/resources/sub");
}

TEST_F(SchemaDirTest, EachSubDirectoryHasItsName) {
  const char* names[] = {
      "lintor",    "colourschemes", "export_options", "fonts", "graphics", "lights", "parasolid", "release",
      "resources", "step",          "translators",    "xrc",   "kpq",      "wx",     "navblock",  "UPI"};
  ASSERT_EQ(std::size(names), std::size_t{vlnNUM_SCHEMA_SUB_DIRECTORIES});
  for (int value = 0; value < vlnNUM_SCHEMA_SUB_DIRECTORIES; ++value) {
    const vlnSchemaDir schema = map.get_schema_dir(static_cast<vlnSchemaSubDirectory>(value));
    EXPECT_EQ(schema.user_dir(), dir / "config/app/" + names[value]);
    EXPECT_EQ(schema.installation_path(), dir / "i/sys/schemas/" + names[value]);
  }
  const vlnSchemaDir unknown = map.get_schema_dir(static_cast<vlnSchemaSubDirectory>(16));
  EXPECT_EQ(unknown.user_dir(), dir / "config/app");
  EXPECT_TRUE(unknown.installation_path().empty());
}

TEST_F(SchemaDirTest, ACopyDoesWhatTheOriginalDoes) {
  dir.write("i/sys/schemas/fonts/a.fnt", "font");
  const vlnSchemaDir fonts = map.get_schema_dir(vlnSchemaFonts);
  const vlnSchemaDir copy(fonts);
  vlnSchemaDir assigned = map.get_schema_dir(vlnSchemaLights);
  assigned = fonts;
  for (const vlnSchemaDir* each : {&fonts, &copy, static_cast<const vlnSchemaDir*>(&assigned)}) {
    EXPECT_EQ(each->installation_path(), fonts.installation_path());
    EXPECT_EQ(each->user_dir(), fonts.user_dir());
    EXPECT_EQ(each->copy_files("fnt"), 1);
    EXPECT_EQ(TemporaryDirectory::read(dir / "config/app/fonts/a.fnt"), "font");
    EXPECT_TRUE(std::filesystem::remove(dir / "config/app/fonts/a.fnt"));
  }
  EXPECT_EQ(vlnSchemaDir(fonts.installation_path(), fonts.user_dir(), nullptr).copy_files("fnt"), 0);
}

TEST_F(SchemaDirTest, LaterSchemaDirectoriesStandBehindTheUsersAndBeforeEarlierOnes) {
  EXPECT_EQ(map.add_schema_dir("/a"), 1);
  EXPECT_EQ(map.add_schema_dir("/b;/c"), 1);
  const std::string installation = dir / "i/sys/schemas";
  EXPECT_EQ(map.get_dir(vlnDIRECTORY_SCHEMAS).ut_path_string(registry.encoding),
            dir / "config/app" + ";/b;/c;/a;" + installation);
  EXPECT_EQ(registry.app_info.schema_dir(), dir / "config/app" + ";/b;/c;/a;" + installation);
  EXPECT_EQ(registry.app_info.installation_dir(), "/b;/c;/a;" + installation);
  EXPECT_EQ(registry.app_info.user_dir(), dir / "config/app");
  EXPECT_EQ(map.get_schema_dir(vlnSchemaUpi).installation_path(), "/b/UPI;/c/UPI;/a/UPI;" + installation + "/UPI");
}

TEST_F(SchemaDirTest, AFileInTheWayIsNoDirectory) {
  dir.write("config/app/lights", "");
  EXPECT_EQ(map.get_schema_dir(vlnSchemaLights).create_user_dir(), 0);
  EXPECT_EQ(map.get_schema_dir(vlnSchemaLights).copy_files("fnt"), 0);
}
