#include <gtest/gtest.h>

#include "Registry.h"
#include "vlnAppDirMap.h"

namespace {

class SchemaDirTest : public testing::Test {
 protected:
  SchemaDirTest() {
    std::filesystem::create_directories(dir.path() / "config");
    map.initialise("", dir / "i/sys/exec", apPathName(L"app"), &registry.app_info, registry.path(dir / "config"),
                   apPathName());
  }

  TemporaryDirectory dir;
  Registry registry;
  vlnAppDirMap map{nullptr};
};

}  // namespace

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
}

TEST_F(SchemaDirTest, ACopyDoesWhatTheOriginalDoes) {
  dir.write("i/sys/schemas/fonts/a.fnt", "font");
  const vlnSchemaDir fonts = map.get_schema_dir(vlnSchemaFonts);
  const vlnSchemaDir copy(fonts);
  vlnSchemaDir assigned = map.get_schema_dir(vlnSchemaLights);
  assigned = fonts;
  for (const vlnSchemaDir* each : {&copy, static_cast<const vlnSchemaDir*>(&assigned)}) {
    EXPECT_EQ(each->installation_path(), fonts.installation_path());
    EXPECT_EQ(each->user_dir(), fonts.user_dir());
    EXPECT_EQ(each->copy_files("fnt"), 1);
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

TEST_F(SchemaDirTest, MakesAndFillsTheUsersDirectory) {
  dir.write("i/sys/schemas/fonts/a.fnt", "font");
  const vlnSchemaDir fonts = map.get_schema_dir(vlnSchemaFonts);
  EXPECT_EQ(fonts.copy_files("fnt"), 1);
  EXPECT_EQ(TemporaryDirectory::read(dir / "config/app/fonts/a.fnt"), "font");
  dir.write("config/app/lights", "in the way");
  EXPECT_EQ(map.get_schema_dir(vlnSchemaLights).create_user_dir(), 0);
  EXPECT_EQ(map.get_schema_dir(vlnSchemaLights).copy_files("fnt"), 0);
}

TEST_F(SchemaDirTest, AnUnknownSubDirectoryStandsForTheWhole) {
  const vlnSchemaDir unknown = map.get_schema_dir(static_cast<vlnSchemaSubDirectory>(16));
  EXPECT_EQ(unknown.user_dir(), dir / "config/app");
  EXPECT_TRUE(unknown.installation_path().empty());
}
