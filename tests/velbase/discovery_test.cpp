#include <dirent.h>
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <map>

#include "Registry.h"
#include "vlnTranslatorCacheWriter.h"

static std::map<std::string, int> listings;

// Stands before the C library's, so that every listing of a directory in this process is counted.
extern "C" __attribute__((visibility("default"))) DIR* opendir(const char* name) {
  ++listings[name];
  static const auto real = reinterpret_cast<DIR* (*)(const char*)>(dlsym(RTLD_NEXT, "opendir"));
  return real(name);
}

namespace {

class DiscoveryTest : public testing::Test {
 protected:
  vlnTranslatorLoadStatus discover(const std::string& directories, const std::string& cache = "",
                                   const utString& preferred_format = "") {
    const apPathName cache_path = cache.empty() ? apPathName() : registry.path(cache);
    registry.libraries.opened = 0;
    return registry.sets.create_translator_dlls(cache_path, registry.search_path(directories), preferred_format,
                                                &registry.app_info, inputs, outputs);
  }

  std::string write_cache() {
    int written = 0;
    vlnTranslatorLoadStatus status(vlnLOAD_OK);
    const vlnTranslatorCacheWriter writer(dir / "translators.lst", *inputs, *outputs, registry.encoding, written,
                                          status);
    return dir / "translators.lst";
  }

  TemporaryDirectory dir;
  Registry registry;
  std::unique_ptr<vlnTranslatorDlls> inputs, outputs;
};

}  // namespace

TEST_F(DiscoveryTest, DescribesEveryLibraryAndLeavesBrokenOnesOut) {
  const vlnTranslatorLoadStatus status = discover(VEL_FIXTURES ";" + (dir / "missing"));
  EXPECT_EQ(registry.formats(*inputs), (std::vector<std::string>{"A / B X", "Fixture", "say \"cheese\""}));
  EXPECT_EQ(registry.formats(*outputs), (std::vector<std::string>{"Fixture", "Good", "reflecting", "Viewer"}));
  EXPECT_EQ(status.types(),
            (std::set{vlnLOAD_OK, vlnLOAD_NO_LIBRARY_OBJECT, vlnLOAD_FILE_FAILED, vlnLOAD_DIRECTORY_MISSING}));
}

TEST_F(DiscoveryTest, AnEmptySearchPathEndsItAtOnce) {
  copy_fixture("good_input", dir.path() / "lib");
  discover(dir / "lib");
  const vlnTranslatorLoadStatus status = discover("", write_cache());
  EXPECT_EQ(status.types(), std::set{vlnLOAD_SEARCH_PATH_EMPTY});
  EXPECT_EQ(inputs->count() + outputs->count(), 0U);
}

TEST_F(DiscoveryTest, OpensNothingAndListsTwiceWhenTheCacheIsWhole) {
  std::string cache;
  for (int i = 0; i < 40; ++i) {
    const std::string number = std::to_string(i);
    copy_fixture(i % 2 ? "good_input" : "good_output", dir.path() / "lib", "t" + number + ".dll");
    cache += "{\n  \"t" + number + ".dll\",\n  \"" + (i % 2 ? "input" : "output") + "\",\n  \"F" + number +
             "\",\n  {\"STL\"},\n  {\"stl\"},\n  \"\",\n  \"Mesh\",\n  \"\",\n  0\n}\n";
  }
  listings.clear();
  const vlnTranslatorLoadStatus status = discover(dir / "lib", dir.write("translators.lst", cache));
  EXPECT_TRUE(status.ok());
  EXPECT_EQ(inputs->count() + outputs->count(), 40U);
  EXPECT_EQ(registry.libraries.opened, 0);
  EXPECT_EQ(listings[dir / "lib"], 2) << "for all records, and by the lister";
}

TEST_F(DiscoveryTest, OnlyWhatTheCacheDoesNotNameIsOpened) {
  copy_fixture("good_input", dir.path() / "lib", "IGESIN.DLL");
  discover(dir / "lib");
  std::string cache = TemporaryDirectory::read(write_cache());
  cache.replace(cache.find("IGESIN.DLL"), 10, "iGesIn.dll");
  copy_fixture("good_output", dir.path() / "lib");
  EXPECT_TRUE(discover(dir / "lib", dir.write("translators.lst", cache)).ok());
  EXPECT_EQ(registry.libraries.opened, 1);
  EXPECT_EQ(inputs->count(), 1U);
  EXPECT_EQ(outputs->count(), 1U);

  std::filesystem::remove(dir / "lib/IGESIN.DLL");
  EXPECT_TRUE(discover(dir / "lib", dir / "translators.lst").ok()) << "a stale record is no failure";
  EXPECT_EQ(inputs->count(), 0U);
  EXPECT_EQ(outputs->count(), 1U);
}

TEST_F(DiscoveryTest, RecordsAreLookedUpOnTheSearchPathWhateverTheListerGives) {
  copy_fixture("good_input", dir.path() / "lib");
  discover(dir / "lib");
  const std::string cache = write_cache();
  struct : vlnIFindByExtension {
    void find_by_extension(apPathName, apString, std::vector<apPathName>&, bool& missing) const override {
      missing = false;
    }
  } nothing;
  const vlnTranslatorSearchPath path(vlnSearchPath(registry.path(dir / "lib")), &nothing);
  registry.sets.create_translator_dlls(registry.path(cache), path, "", &registry.app_info, inputs, outputs);
  EXPECT_EQ(inputs->count(), 1U);
}

TEST_F(DiscoveryTest, ADamagedCacheIsToldAndReplacedByTheLibraries) {
  copy_fixture("good_input", dir.path() / "lib");
  for (const std::string& cache : {dir / "missing.lst", dir.write("rubbish.lst", "rubbish"), dir / "lib"}) {
    const vlnTranslatorLoadStatus status = discover(dir / "lib", cache);
    EXPECT_TRUE(status.types().contains(vlnLOAD_CACHE_UNREADABLE)) << cache;
    EXPECT_EQ(registry.libraries.opened, 1);
    EXPECT_EQ(inputs->count(), 1U);
  }
}

TEST_F(DiscoveryTest, EqualNamesInTwoDirectoriesAreBothAdded) {
  copy_fixture("good_input", dir.path() / "one", "same.dll");
  copy_fixture("good_input", dir.path() / "two", "same.dll");
  std::filesystem::create_directories(dir.path() / "one/directory.dll");
  dir.make_pipe("one/pipe.dll");
  const vlnTranslatorLoadStatus status = discover(dir / "one" + ";" + (dir / "two"));
  EXPECT_EQ(inputs->count(), 2U);
  EXPECT_EQ(inputs->translator_for_format("A / B X")->file_ut(), dir / "one/same.dll");
  EXPECT_TRUE(status.files_failed_to_load()) << "a directory named like a library is a candidate that fails";
}

TEST_F(DiscoveryTest, TheEarlierOfTwoLibrariesOfOneFormatIsOpenedAgain) {
  copy_fixture("good_input", dir.path() / "lib", "a.dll");
  copy_fixture("good_input", dir.path() / "lib", "b.dll");
  discover(dir / "lib");
  EXPECT_TRUE(discover(dir / "lib", write_cache()).ok());
  EXPECT_EQ(registry.libraries.opened, 1);
  std::vector<std::string> files;
  vlnTranslatorDllsIT translators(*inputs);
  while (++translators) files.push_back(translators()->file_name_ut().str());
  EXPECT_EQ(files, (std::vector<std::string>{"a.dll", "b.dll", "a.dll"}));
}

TEST_F(DiscoveryTest, APreferredFormatReachesTheOutputSet) {
  for (const char* name : {"good_output", "viewer", "reflecting"}) copy_fixture(name, dir.path() / "lib");
  setenv("FIXTURE_FORMAT", "iges", 1);
  discover(dir / "lib");
  unsetenv("FIXTURE_FORMAT");
  EXPECT_EQ(outputs->default_output_format(nullptr)->format_name().ut_string(), "iges") << "no preference";
  discover(dir / "lib", "", "viewer");
  EXPECT_TRUE(outputs->default_output_format(nullptr)->is_viewer());
}
