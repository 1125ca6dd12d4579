#include <gtest/gtest.h>
#include <unistd.h>

#include <nlohmann/json.hpp>

#include "Program.h"

namespace fs = std::filesystem;
using nlohmann::json;

TEST(Directories, AreFoundThroughALinkToo) {
  const Installation installation;
  const std::string link = installation.work / "vel";
  fs::create_symlink(installation.program(), link);
  const Outcome outcome = Running({link, "dirs", "--json"}, installation.variables(), "/").finish();
  ASSERT_EQ(outcome.code, 0) << outcome.err;
  const json dirs = json::parse(outcome.out);
  const std::string root = installation.root.path();
  const std::string data = installation.home / "velbase";
  EXPECT_EQ(dirs["directories"]["system"], root + "/sys");
  EXPECT_EQ(dirs["directories"]["library"], root + "/sys/exec/lib");
  EXPECT_EQ(dirs["directories"]["application data"], data);
  EXPECT_EQ(dirs["schemas"]["resources"]["user"], data + "/resources");
  EXPECT_EQ(dirs["schemas"]["resources"]["installation"], root + "/sys/schemas/resources");
  EXPECT_NE(installation.run({"dirs"}).out.find(data), std::string::npos);
}

TEST(Directories, ApplicationDataIsLookedForInOrder) {
  const Installation installation;
  const std::string home = installation.home.path();
  installation.home.write("file", "");
  struct Case {
    std::vector<std::string> variables;
    std::string data;  // empty: none can be had
    bool warned;
  };
  const std::string nowhere = "HOME=" + home + "/file";
  const std::string private_name = "velbase-" + std::to_string(geteuid());
  installation.home.write("open/x", "");
  fs::create_directory(installation.home / ("open/" + private_name));
  fs::permissions(installation.home / ("open/" + private_name), fs::perms::all);
  installation.home.write("tmp/x", "");
  const std::vector<Case> cases{
      {{"QRM_HOME=" + home}, home + "/velbase", false},
      {{"HOME=" + home}, home + "/.config/velbase", false},
      {{"HOME=" + home, "XDG_CONFIG_HOME=" + home + "/xdg"}, home + "/xdg/velbase", false},
      {{"HOME=" + home, "XDG_CONFIG_HOME=relative"}, home + "/.config/velbase", false},
      {{"HOME=" + home, "QRM_HOME=" + home + "/missing"}, home + "/.config/velbase", true},
      {{nowhere, "TMPDIR=" + home + "/tmp"}, home + "/tmp/" + private_name + "/velbase", false},
      // A name among the temporary files that others may write to is not trusted.
      {{nowhere, "TMPDIR=" + home + "/open"}, "", true},
      {{nowhere, "TMPDIR=" + home + "/file"}, "", true},
  };
  for (const Case& c : cases) {
    const auto run = [&](std::vector<std::string> words) {
      words.insert(words.begin(), installation.program());
      return Running(words, c.variables, installation.work.path()).finish();
    };
    const Outcome outcome = run({"dirs", "--json"});
    ASSERT_EQ(outcome.code, 0) << outcome.err;
    const json data = json::parse(outcome.out)["directories"]["application data"];
    EXPECT_EQ(data, c.data.empty() ? json(nullptr) : json(c.data)) << c.variables.front();
    EXPECT_EQ(!outcome.err.empty(), c.warned) << outcome.err;
    if (!c.data.empty()) continue;

    // Without it everything else works, what the installation carries included.
    EXPECT_NE(run({"options", "STL"}).out.find("weld-points"), std::string::npos);
    EXPECT_EQ(run({"cache", "refresh"}).code, 1);
    EXPECT_EQ(run({"cache", "clear"}).code, 0);
    EXPECT_EQ(run({"list"}).code, 0);
  }
  EXPECT_TRUE(installation.files().empty());
}
