#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "Program.h"

using nlohmann::json;

TEST(List, SaysWhatFailedAndWhy) {
  const Installation installation;
  for (const char* name : {"throws.dll", "no_entry.dll", "no_object.dll", "wrong_interface.dll"}) {
    installation.add_fixture(name);
  }
  installation.root.write("sys/exec/lib/text.dll", "no library\n");
  std::filesystem::create_directory(installation.library("directory.dll"));

  const json list = json::parse(installation.expect({"list", "--json"}, 0).out);
  std::vector<std::string> good;
  for (const auto& row : list["translators"]) {
    good.push_back(row["format"].get<std::string>() + " " + row["direction"].get<std::string>());
    EXPECT_FALSE(row["from_cache"]);
  }
  EXPECT_EQ(good, (std::vector<std::string>{"OBJ input", "OBJ output", "STL input", "STL output"}));

  const std::vector<std::pair<std::string, std::string>> expected{
      {"directory.dll", ""}, {"no_entry.dll", ""},         {"no_object.dll", "gives no translator"},
      {"text.dll", ""},      {"throws.dll", "describing"}, {"wrong_interface.dll", "interface"},
  };
  ASSERT_EQ(list["failed"].size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(list["failed"][i]["library"], installation.library(expected[i].first));
    const auto reason = list["failed"][i]["reason"].get<std::string>();
    EXPECT_FALSE(reason.empty());
    EXPECT_NE(reason.find(expected[i].second), std::string::npos) << reason;
  }
  installation.expect({"list"}, 0, {"\nFailed:\n"});

  // With good ones at hand nobody else is bothered with the broken ones.
  installation.work.write("a.stl", tetrahedron_stl);
  EXPECT_EQ(installation.run({"info", "a.stl"}).err, "");
}

TEST(List, WithoutTranslatorsEveryCommandSaysSo) {
  const Installation installation(false);
  installation.expect({"list"}, 0, {"No translators"});
  installation.add_fixture("throws.dll");
  installation.work.write("a.stl", tetrahedron_stl);
  installation.expect({"translate", "a.stl", "-o", "b.obj"}, 3, {"no usable translator among 1 library; `vel list`"});
}

TEST(List, OptionsShowKeysTypesAndDefaults) {
  const Installation installation;
  const json options = json::parse(installation.run({"options", "stl", "--json"}).out);
  EXPECT_EQ(options["format"], "STL");
  std::map<std::string, json> by_key;
  for (const auto& option : options["options"]) by_key[option["key"]] = option;
  EXPECT_EQ(by_key["SCALE"]["type"], "real");
  EXPECT_EQ(by_key["DIGITS"]["type"], "whole");
  EXPECT_EQ(by_key["SOLID_NAME"]["type"], "text");
  EXPECT_EQ(by_key["WELD_POINTS"]["allowed"], json({"False", "True", "0", "1"}));
  EXPECT_EQ(by_key["FILE_FORMAT"]["default"], "binary");
  EXPECT_NE(by_key["FILE_FORMAT"]["description"], "");
  EXPECT_EQ(by_key["FILE_FORMAT"]["name"], "file-format");

  // The user's file sets a default and does not hide the keys that it leaves out.
  installation.home.write("velbase/resources/STL.rsc", "FILE_FORMAT = ascii\n");
  installation.expect({"options", "STL"}, 0,
                      {"file-format = ascii\n    one of: binary, ascii\n", "scale = 1\n    real, greater than 0\n"});
}
