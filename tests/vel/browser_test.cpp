#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <numbers>
#include <sstream>

#include "Picture.h"
#include "Program.h"

namespace {

// Pages by the program itself, looked at in a browser without a window.
class Browser : public testing::Test {
 protected:
  Browser() { installation_.add_library(VEL_BUILT_ROOT "/sys/exec/lib/viewerwriter.dll"); }

  std::string page_of(const std::string& model) {
    const Outcome outcome = installation_.run({"view", model, "-o", "page.html"});
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    return installation_.work() / "page.html";
  }

  // Opens a page, with a script of the test's own behind it, and keeps what both say on the console: `said` the lines
  // that begin with "test ", `complaints` all others.
  // Unless `at_once`, time runs ahead for the page, so that its timers are through before it is looked at.
  Picture look(const std::string& page, const std::string& script, const std::string& colours = "1",
               bool at_once = false) {
    std::ofstream(page, std::ios::app) << "<script>" << script << "</script>\n";
    const std::string picture = installation_.work() / "picture.png";
    const std::string profile = installation_.work() / "profile";
    const Outcome outcome = Running({VEL_CHROMIUM,
                                     "--headless",
                                     "--no-sandbox",
                                     "--disable-gpu",
                                     "--use-angle=swiftshader",
                                     "--enable-unsafe-swiftshader",
                                     "--disable-quic",
                                     "--no-first-run",
                                     "--disable-background-networking",
                                     "--disable-component-update",
                                     "--disable-sync",
                                     "--hide-scrollbars",
                                     "--enable-logging=stderr",
                                     "--window-size=1100,700",
                                     "--force-device-scale-factor=1",
                                     at_once ? "--mute-audio" : "--virtual-time-budget=4000",
                                     "--user-data-dir=" + profile,
                                     "--blink-settings=preferredColorScheme=" + colours,
                                     "--screenshot=" + picture,
                                     "file://" + page},
                                    installation_.variables(), installation_.work().path())
                                .finish();
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    said_ = complaints_ = "";
    std::istringstream lines(outcome.err);
    for (std::string line; std::getline(lines, line);) {
      // Drivers tell how to be quicker; that is no fault of the page.
      if (line.find("CONSOLE") == line.npos || line.find("GL Driver Message") != line.npos) continue;
      const std::size_t own = line.find("\"test ");
      (own == line.npos ? complaints_ : said_) += own == line.npos ? line : line.substr(own + 6);
    }
    EXPECT_EQ(complaints_, "");
    return Picture(picture);
  }

  Installation installation_;
  std::string said_, complaints_;
};

void add_box(std::string& obj, const char* name, const char* material, double x, double y, int first) {
  obj += std::string("o ") + name + "\nusemtl " + material + "\n";
  for (int i = 0; i < 8; ++i) {
    obj += "v " + std::to_string(x + (i & 1)) + " " + std::to_string(y + (i >> 1 & 1)) + " " + std::to_string(i >> 2) +
           "\n";
  }
  for (const auto& face : {std::array{1, 3, 4, 2}, std::array{5, 6, 8, 7}, std::array{1, 2, 6, 5},
                           std::array{3, 7, 8, 4}, std::array{1, 5, 7, 3}, std::array{2, 4, 8, 6}}) {
    obj += "f";
    for (int corner : face) obj += " " + std::to_string(first + corner - 1);
    obj += "\n";
  }
}

}  // namespace

TEST_F(Browser, ShowsEachPartWhereItIsAndAnswers) {
  const TemporaryDirectory& work = installation_.work();
  work.write("boxes.mtl", "newmtl red\nKd 1 0 0\nnewmtl green\nKd 0 1 0\n");
  std::string obj = "mtllib boxes.mtl\n";
  add_box(obj, "</script><img src=x onerror=console.log(1)>", "red", 0, 0, 1);
  add_box(obj, "right", "green", 3, 3, 9);
  const std::string page = page_of(work.write("boxes.obj", obj));

  const auto is = [](char colour) { return [colour](const auto& pixel) { return colour_name(pixel) == colour; }; };
  // The list of parts takes the left 284 of 1100 pixels.
  const Picture light = look(page, "velReady.then(() => console.log('test ready'))");
  EXPECT_GT(light.at(0.6, 0.02)[2], 230);
  EXPECT_GT(light.share(is('r'), 0.26, 0.63), 0.03);
  EXPECT_GT(light.share(is('g'), 0.63, 1), 0.03);
  EXPECT_EQ(light.share(is('r'), 0.63, 1), 0);
  EXPECT_EQ(light.share(is('g'), 0.26, 0.63), 0);
  EXPECT_NE(said_.find("ready"), std::string::npos);

  const Picture dark = look(page, R"(velReady.then(() => {
    const key = (name) => document.body.dispatchEvent(new KeyboardEvent("keydown", { key: name, bubbles: true }));
    for (const name of "1234567pepsmes?dd+-f") key(name);
    const rows = [...document.querySelectorAll(".row-of-tree")];
    rows[1].click();
    console.log("test " + rows.length + " rows, " + document.getElementById("size-of").textContent + " is " +
      document.getElementById("size-x").textContent + " wide");
    key("h");
    key("ArrowLeft");
  }))",
                            "0");
  EXPECT_NE(said_.find("2 rows, right is 1 wide"), std::string::npos) << said_;
  EXPECT_LT(dark.at(0.6, 0.02)[2], 100);
  EXPECT_GT(dark.share(is('r'), 0.26, 1), 0.03);
  EXPECT_EQ(dark.share(is('g'), 0.26, 1), 0);
}

TEST_F(Browser, TwoHundredThousandTrianglesStandInSeconds) {
  constexpr int around = 320;
  std::string obj;
  for (int i = 0; i < around * around; ++i) {
    const double a = 2 * std::numbers::pi * (i / around) / around, b = 2 * std::numbers::pi * (i % around) / around;
    const double r = 3 + std::cos(b);
    obj += "v " + std::to_string(r * std::cos(a)) + " " + std::to_string(r * std::sin(a)) + " " +
           std::to_string(std::sin(b)) + "\n";
  }
  for (int i = 0; i < around; ++i) {
    for (int k = 0; k < around; ++k) {
      const auto vertex = [&](int u, int v) { return " " + std::to_string((u % around) * around + v % around + 1); };
      obj += "f" + vertex(i, k) + vertex(i + 1, k) + vertex(i + 1, k + 1) + vertex(i, k + 1) + "\n";
    }
  }
  const std::string page = page_of(installation_.work().write("torus.obj", obj));
  EXPECT_LT(std::filesystem::file_size(page), 4000000u);
  const auto start = std::chrono::steady_clock::now();
  const Picture picture =
      look(page, "velReady.then((time) => console.log('test ' + Math.round(time) + ' ms'))", "1", true);
  // The limit is for machines that do much else; what it takes is told.
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(40));
  RecordProperty("first_picture", said_);
  EXPECT_EQ(colour_name(picture.at(0.63, 0.2)), 'w');
}
