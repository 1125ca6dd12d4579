#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "Program.h"

namespace fs = std::filesystem;
using nlohmann::json;

namespace {

// How many translators came from the cache, and how many there are.
std::pair<int, int> from_cache(const Installation& installation) {
  int cached = 0, all = 0;
  const json list = json::parse(installation.run({"list", "--json"}).out);
  for (const auto& row : list["translators"]) {
    cached += row["from_cache"].get<bool>();
    ++all;
  }
  return {cached, all};
}

}  // namespace

TEST(Cache, ASecondStartOpensNoLibrary) {
  for (const std::vector<std::string>& words : {std::vector<std::string>{"list"},
                                                {"options", "STL"},
                                                {"info", "a.stl"},
                                                {"info", "unknown"},
                                                {"translate", "a.stl", "-o", "b.obj"}}) {
    const Installation installation;
    installation.work.write("a.stl", tetrahedron_stl);
    installation.work.write("unknown", "of no type");
    installation.run(words);
    EXPECT_EQ(from_cache(installation), std::pair(4, 4)) << words[0];
  }
}

TEST(Cache, AnAddedLibraryIsOpenedOnceAndNoOtherForIt) {
  const Installation installation;
  installation.run({"list"});
  installation.root.write("sys/exec/lib/objreader.dll", "opened it would fail");
  const auto later = fs::last_write_time(installation.cache_file()) + std::chrono::hours(1);
  fs::last_write_time(installation.cache_file(), later);
  installation.add_fixture("good_input.dll");
  EXPECT_EQ(from_cache(installation), std::pair(4, 5));
}

TEST(Cache, ALibraryThatWasReplacedIsAskedAgain) {
  const Installation installation;
  installation.run({"list"});
  fs::copy_file(installation.library("stlwriter.dll"), installation.library("objwriter.dll"),
                fs::copy_options::overwrite_existing);
  EXPECT_EQ(from_cache(installation), std::pair(3, 4));
  EXPECT_EQ(installation.run({"list"}).out.find("OBJ     output"), std::string::npos);
  EXPECT_EQ(from_cache(installation), std::pair(4, 4));

  // One that says the same as before is asked once as well, and not at every start.
  fs::last_write_time(installation.cache_file(),
                      fs::last_write_time(installation.library("stlreader.dll")) - std::chrono::hours(1));
  EXPECT_EQ(from_cache(installation), std::pair(0, 4));
  EXPECT_EQ(from_cache(installation), std::pair(4, 4));
}

TEST(Cache, WhatNeverGetsARecordIsNamedByARefreshAndNotWrittenAtEveryStart) {
  const Installation installation;
  for (const char* name : {"throws.dll", "no_entry.dll", "unwritable_name.dll"}) installation.add_fixture(name);
  // The first of two libraries of one format is opened at every start.
  fs::copy_file(installation.library("stlreader.dll"), installation.library("twin.dll"));
  installation.run({"list"});
  installation.expect({"cache", "show"}, 0, {": 5 records"});
  const auto written = fs::last_write_time(installation.cache_file());
  for (int start = 0; start < 3; ++start) installation.run({"options", "STL"});
  EXPECT_EQ(fs::last_write_time(installation.cache_file()), written);
  installation.expect({"cache", "refresh"}, 0,
                      {": 5 records", "throws.dll: left out", "unwritable_name.dll: left out"});
}

TEST(Cache, WhereItCannotBeKeptOnlyItsRefreshFails) {
  const Installation installation;
  installation.work.write("a.stl", tetrahedron_stl);
  installation.home.write("velbase/translators", "a file where the directory should be");
  EXPECT_EQ(installation.expect({"info", "a.stl"}, 0).err, "");
  installation.expect_error({"cache", "refresh"}, 1, {"as it was"});
}

TEST(Cache, StartsAtTheSameTimeLeaveAWholeFile) {
  const Installation installation;
  std::vector<Running> starts;
  for (int i = 0; i < 12; ++i) starts.push_back(installation.start({"list"}));
  for (Running& start : starts) EXPECT_EQ(start.finish().err, "");
  EXPECT_EQ(from_cache(installation), std::pair(4, 4));
  // Nothing is left beside it.
  const fs::directory_iterator entries(fs::path(installation.cache_file()).parent_path());
  EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
}

TEST(Cache, IsWrittenShownAndClearedOnRequest) {
  const Installation installation;
  installation.expect({"cache", "refresh"}, 0, {installation.cache_file() + ": 4 records written.\n"});
  EXPECT_EQ(from_cache(installation), std::pair(4, 4));
  installation.expect({"cache", "show"}, 0, {"stlreader.dll"});
  installation.expect({"cache", "clear"}, 0, {installation.cache_file() + ": removed.\n"});
  installation.expect({"cache", "clear"}, 0);
  installation.expect({"cache", "show"}, 0, {"No cache"});
  EXPECT_EQ(from_cache(installation), std::pair(0, 4));
}

TEST(Cache, ADamagedFileIsToldAndMended) {
  const Installation installation;
  installation.work.write("a.stl", tetrahedron_stl);
  installation.run({"cache", "refresh"});
  const std::string whole = TemporaryDirectory::read(installation.cache_file());
  for (const std::string& damaged :
       {std::string("garbage"), whole.substr(0, whole.size() / 2), std::string(5000, 'x')}) {
    for (const std::vector<std::string>& words : {std::vector<std::string>{"list"}, {"info", "a.stl"}}) {
      installation.home.write("velbase/translators/translators.lst", damaged);
      EXPECT_NE(installation.run({"cache", "show"}).err.find("damaged"), std::string::npos);
      installation.expect(words, 0, {"written anew"});
      EXPECT_EQ(installation.run(words).err, "");
      EXPECT_EQ(TemporaryDirectory::read(installation.cache_file()), whole);
    }
  }
}

TEST(Cache, ARecordOfALibraryThatIsGoneOrBrokenDoesNoHarm) {
  const Installation installation;
  installation.work.write("a.stl", tetrahedron_stl);
  installation.run({"cache", "refresh"});
  fs::remove(installation.library("objreader.dll"));
  EXPECT_EQ(from_cache(installation), std::pair(3, 3));
  installation.expect({"cache", "show"}, 0, {"objreader"});
  installation.root.write("sys/exec/lib/stlreader.dll", "no library any more");
  installation.expect_error({"info", "a.stl"}, 3, {"stlreader.dll cannot be used: "});
}
