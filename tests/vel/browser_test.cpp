#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "Picture.h"
#include "Program.h"

namespace {

// What the scripts of the tests share. In parallel lines and seen along an axis, a model of size 4 fills the view:
// `at` gives the place of a point that is so far to the right and up from the middle.
const char* const helpers = R"(
  const key = (name) => document.body.dispatchEvent(new KeyboardEvent("keydown", { key: name, bubbles: true }));
  const text = (id) => document.getElementById(id).textContent;
  const rows = () => [...document.querySelectorAll(".row-of-tree")];
  const canvas = document.getElementById("view");
  canvas.setPointerCapture = () => {};
  const box = canvas.getBoundingClientRect();
  const at = (right, up) => {
    const unit = (box.height - 64) / 4.48;
    return { clientX: box.left + box.width / 2 + right * unit, clientY: (box.height - 64) / 2 - up * unit };
  };
  const send = (kind, place) => canvas.dispatchEvent(new PointerEvent(kind, { ...place, pointerId: 1, button: 0 }));
  const click = (place) => ["pointerdown", "pointerup"].forEach((kind) => send(kind, place));
)";

// Pages by the program itself, looked at in a browser without a window.
class Browser : public testing::Test {
 protected:
  Browser() { installation_.add_library(VEL_BUILT_ROOT "/sys/exec/lib/viewerwriter.dll"); }

  std::string page_of(const std::string& model) {
    const Outcome outcome = installation_.run({"view", model, "-o", "page.html"});
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    return installation_.work / "page.html";
  }

  // Opens a page with a script of the test's own and collects the console: in `said_` the lines that begin with
  // "test ". All others are errors. Unless `at_once`, time runs ahead for the page, so that its timers are through.
  Picture look(const std::string& page, const std::string& script, const std::string& colours = "1",
               bool at_once = false) {
    std::ofstream(page, std::ios::app) << "<script>{" << helpers << script << "}</script>\n";
    std::istringstream fixed(
        "--headless --no-sandbox --disable-gpu --use-angle=swiftshader --enable-unsafe-swiftshader --disable-quic "
        "--no-first-run --disable-background-networking --disable-component-update --disable-sync --hide-scrollbars "
        "--enable-logging=stderr --window-size=1100,700 --force-device-scale-factor=1");
    const TemporaryDirectory& work = installation_.work;
    std::vector<std::string> words{VEL_CHROMIUM};
    words.insert(words.end(), std::istream_iterator<std::string>(fixed), {});
    words.insert(words.end(), {"--user-data-dir=" + (work / "profile"), "--screenshot=" + (work / "picture.png"),
                               "--blink-settings=preferredColorScheme=" + colours, "file://" + page});
    if (!at_once) words.push_back("--virtual-time-budget=20000");
    const Outcome outcome = Running(words, installation_.variables(), work.path()).finish();
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    said_ = "";
    std::istringstream lines(outcome.err);
    for (std::string line; std::getline(lines, line);) {
      // Drivers tell how to be quicker; that is no fault of the page.
      if (line.find("CONSOLE") == line.npos || line.find("GL Driver Message") != line.npos) continue;
      const std::size_t own = line.find("\"test ");
      EXPECT_NE(own, line.npos) << line;
      if (own != line.npos) said_ += line.substr(own + 6);
    }
    return Picture(work / "picture.png");
  }

  void expect_said(const std::vector<std::string>& lines) const {
    for (const std::string& line : lines) EXPECT_NE(said_.find(line), std::string::npos) << line << "\n" << said_;
  }

  Installation installation_;
  std::string said_;
};

using Point = std::array<double, 3>;

void add_box(std::string& obj, const char* name, const char* material, const Point& low, const Point& high) {
  obj += std::string("o ") + name + "\nusemtl " + material + "\n";
  for (int i = 0; i < 8; ++i) {
    obj += "v";
    for (int k = 0; k < 3; ++k) obj += " " + std::to_string((i >> k & 1 ? high : low)[static_cast<std::size_t>(k)]);
    obj += "\n";
  }
  obj += "f -8 -6 -5 -7\nf -4 -3 -1 -2\nf -8 -7 -3 -4\nf -6 -2 -1 -5\nf -8 -4 -2 -6\nf -7 -5 -1 -3\n";
}

// A cube from 0 to 4 with a hole along X, a quarter as wide and high, in its middle.
void add_drilled_cube(std::string& obj, const char* name, const char* material) {
  obj += std::string("o ") + name + "\nusemtl " + material + "\n";
  for (const double x : {0.0, 4.0}) {
    for (const auto& [low, high] : {std::pair{0.0, 4.0}, std::pair{1.5, 2.5}}) {
      for (const auto& [y, z] :
           {std::pair{low, low}, std::pair{high, low}, std::pair{high, high}, std::pair{low, high}}) {
        obj += "v " + std::to_string(x) + " " + std::to_string(y) + " " + std::to_string(z) + "\n";
      }
    }
  }
  // Corner k of the outer or the inner square at the lower or the upper end.
  const auto at = [](int end, int ring, int k) { return " " + std::to_string(8 * end + 4 * ring + k % 4 - 16); };
  for (int k = 0; k < 4; ++k) {
    obj += "f" + at(0, 0, k) + at(0, 0, k + 1) + at(1, 0, k + 1) + at(1, 0, k) + "\n";
    obj += "f" + at(0, 1, k) + at(1, 1, k) + at(1, 1, k + 1) + at(0, 1, k + 1) + "\n";
    obj += "f" + at(1, 0, k) + at(1, 0, k + 1) + at(1, 1, k + 1) + at(1, 1, k) + "\n";
    obj += "f" + at(0, 0, k) + at(0, 1, k) + at(0, 1, k + 1) + at(0, 0, k + 1) + "\n";
  }
}

}  // namespace

TEST_F(Browser, ShowsEachPartWhereItIsAndAnswers) {
  const TemporaryDirectory& work = installation_.work;
  work.write("boxes.mtl", "newmtl red\nKd 1 0 0\nnewmtl green\nKd 0 1 0\n");
  std::string obj = "mtllib boxes.mtl\n";
  add_box(obj, "</script><img src=x onerror=console.log(1)>", "red", {0, 0, 0}, {1, 1, 1});
  add_box(obj, "right", "green", {3, 3, 0}, {4, 4, 1});
  const std::string page = page_of(work.write("boxes.obj", obj));

  const auto is = [](char colour) { return [colour](const auto& pixel) { return colour_name(pixel) == colour; }; };
  // The list of parts takes the left 284 of 1100 pixels.
  const Picture light = look(page, "velReady.then(() => console.log('test ready'))");
  EXPECT_GT(light.at(0.6, 0.02)[2], 230);
  EXPECT_GT(light.share(is('r'), 0.26, 0.63), 0.03);
  EXPECT_GT(light.share(is('g'), 0.63, 1), 0.03);
  EXPECT_EQ(light.share(is('r'), 0.63, 1), 0);
  EXPECT_EQ(light.share(is('g'), 0.26, 0.63), 0);
  expect_said({"ready"});

  const Picture dark = look(page, R"(velReady.then(() => {
    for (const name of "1234567pepsmes?dd+-f") key(name);
    const second = rows()[1];
    second.click();
    console.log("test " + rows().length + " rows, " + text("size-of") + " is " + text("size-x") + " wide");
    second.querySelector("input").click();
    console.log("test " + (second.isConnected ? "same row" : "other row") + ", keys go to " + document.activeElement.id);
    second.querySelector("input").click();
    document.activeElement.blur();
    key("h");
    key("ArrowLeft");
  }))",
                            "0");
  // Another row could not be clicked twice, nor be walked from.
  expect_said({"2 rows, right is 1 wide", "same row, keys go to tree"});
  EXPECT_LT(dark.at(0.6, 0.02)[2], 100);
  EXPECT_GT(dark.share(is('r'), 0.26, 1), 0.03);
  EXPECT_EQ(dark.share(is('g'), 0.26, 1), 0);
}

TEST_F(Browser, SectionsShowMaterialAndNothingBehindIt) {
  const TemporaryDirectory& work = installation_.work;
  work.write("cut.mtl", "newmtl red\nKd 1 0 0\nnewmtl green\nKd 0 1 0\nnewmtl blue\nKd 0 0 1\n");
  std::string obj = "mtllib cut.mtl\n";
  add_drilled_cube(obj, "cube", "red");
  // Fills half of the hole, and its sides lie on the hole's.
  add_box(obj, "plug", "green", {0, 1.5, 1.5}, {4, 2, 2.5});
  // Within the cube's material, one of them up to the cut.
  add_box(obj, "hidden", "blue", {0.5, 2.5, 2.5}, {1.5, 3.5, 3.5});
  add_box(obj, "level", "blue", {0.5, 0.5, 0.5}, {2, 1.5, 1.5});
  const std::string page = page_of(work.write("cut.obj", obj));

  // Seen along X at once, in parallel lines and without edges, cut in the middle. A click is on what one sees there.
  const Picture cut = look(page, R"(
    window.matchMedia = () => ({ matches: true });
    for (const name of "p4es") key(name);
    click(at(1, 1));
    console.log("test " + text("size-of"));
    click({ clientX: box.right - 9, clientY: box.top + 9 });
    canvas.blur();
    for (const name of ["section-panel", "tools", "overlay"]) document.getElementById(name).style.display = "none";
  )");
  expect_said({"cube"});
  const auto share = [&cut](char colour) {
    return cut.share([colour](const auto& pixel) { return colour_name(pixel) == colour; }, 0.3, 0.96);
  };
  EXPECT_EQ(share('b'), 0);
  EXPECT_NEAR(share('g') / share('r'), 0.5 / 15, 0.003);

  // The view is right of the list, which takes 284 of 1100 pixels, and its middle is above 64 of 700.
  const auto at = [&](double y, double z) {
    const double unit = (700 - 64) / 4.48;
    return cut.at((284 + 408 + (y - 2) * unit) / 1099, (318 - (z - 2) * unit) / 699);
  };
  EXPECT_EQ(colour_name(at(1, 1)), 'r');
  EXPECT_EQ(colour_name(at(3, 3)), 'r');
  EXPECT_EQ(colour_name(at(1.75, 2)), 'g');
  EXPECT_EQ(colour_name(at(2.25, 2)), 'w');
  // The outline between the hole and the cube is darker than the hatching.
  int darkest = 255;
  for (double y = 2.46; y < 2.54; y += 0.004) darkest = std::min(darkest, at(y, 2)[0]);
  EXPECT_LT(darkest, 160);
}

TEST_F(Browser, MeasuringTakesTheNearestVertexThatIsSeen) {
  // The corner of "hidden" that is nearest to the eye is behind the middle of the cube's front.
  std::string obj;
  add_box(obj, "cube", "none", {0, 0, 0}, {4, 4, 4});
  add_box(obj, "hidden", "none", {2, 1, 2}, {3, 3, 3});
  const std::string page = page_of(installation_.work.write("cube.obj", obj));

  // Seen from the front: X goes to the right, Z up.
  look(page, R"(
    window.matchMedia = () => ({ matches: true });
    for (const name of "p1m") key(name);
    const beside = ({ clientX, clientY }, right, down) => ({ clientX: clientX + right, clientY: clientY + down });
    const state = () => text("hint") + " | " + (document.getElementById("snap").hasAttribute("hidden") ? "free" : "snaps");
    const rests = (place) => new Promise((done) => { send("pointermove", place); setTimeout(done, 100); });
    (async () => {
      await rests(at(0, 0));
      console.log("test middle: " + state());
      await rests(beside(at(2, 2), -5, 4));
      console.log("test corner: " + state());
      click(beside(at(2, 2), -5, 4));
      console.log("test one: " + state());
      // Beside the cube, where there is nothing but the vertex.
      click(beside(at(-2, -2), -6, 3));
      console.log("test two: " + state() + " | " + text("ruler-text"));
      click(at(2, -2));
      click(at(0, 0));
      console.log("test three: " + text("ruler-text").replace(/.*\d/, ""));
      canvas.blur();
    })();
  )");
  expect_said({"middle: Click two points to measure between them | free",
               "corner: Click two points to measure between them | snaps",
               "one: From a vertex: click the second point | free",
               "two: Click a point to measure again | free | 5.657X \u22124   Y 0   Z \u22124vertex to vertex",
               "three: vertex to point"});
}

TEST_F(Browser, InstancesAreFoundByTheirNamesAndThoseOfTheirParts) {
  std::string obj;
  add_box(obj, "nut", "none", {0, 0, 0}, {1, 1, 1});
  add_box(obj, "rod", "none", {3, 0, 0}, {4, 1, 1});
  const std::string file = page_of(installation_.work.write("names.obj", obj));
  // As of formats that know instances.
  std::string page = TemporaryDirectory::read(file);
  const std::string name = "\"nut\",";
  page.replace(page.find(name), name.size(), R"(["left_1","nut"],)");
  std::ofstream(file) << page;
  look(file, R"(
    const found = (name) => {
      const filter = document.getElementById("filter");
      filter.value = name;
      filter.dispatchEvent(new Event("input"));
      return rows().map((row) => row.innerText.replace(/\s+/g, " ") + "/" + row.title);
    };
    for (const name of ["", "LEFT", "nut", "rod"]) console.log("test " + (name || "all") + ": " + found(name).join(", "));
    found("nut");
    rows()[0].click();
    console.log("test " + text("size-of") + " is selected");
  )");
  expect_said({"all: left_1 nut/left_1 (nut), rod/rod", "LEFT: left_1 nut/left_1 (nut)", "nut: left_1 nut/left_1 (nut)",
               "rod: rod/rod", "left_1 (nut) is selected"});
}

TEST_F(Browser, LinesOfSmallPartsDoNotCoverThem) {
  std::string obj;
  for (int i = 0; i < 5000; ++i) {
    const double x = i % 71, y = i / 71;
    add_box(obj, "part", "none", {x, y, 0}, {x + 0.7, y + 0.7, 0.7});
  }
  const std::string page = page_of(installation_.work.write("many.obj", obj));
  const auto brightness = [&](const char* script) {
    const Picture picture = look(page, script);
    double sum = 0;
    for (double x = 0.45; x < 0.8; x += 0.001) {
      for (double y = 0.35; y < 0.6; y += 0.001) sum += picture.at(x, y)[1];
    }
    return sum;
  };
  const double with_lines = brightness("");
  const double without = brightness("key('e')");
  EXPECT_LT(with_lines, without);
  EXPECT_GT(with_lines, 0.9 * without);
}

TEST_F(Browser, TwoHundredThousandTrianglesStandInSeconds) {
  constexpr int side = 320;
  std::string obj;
  for (int i = 0; i < side * side; ++i) {
    const double x = i % side, y = i / side;
    obj += "v " + std::to_string(x) + " " + std::to_string(y) + " " + std::to_string(std::sin(x / 9) * y / 9) + "\n";
  }
  for (int i = 1; i <= side * (side - 1); ++i) {
    if (i % side == 0) continue;
    obj += "f";
    for (const int vertex : {i, i + 1, i + side + 1, i + side}) obj += " " + std::to_string(vertex);
    obj += "\n";
  }
  const std::string page = page_of(installation_.work.write("waves.obj", obj));
  EXPECT_LT(std::filesystem::file_size(page), 4000000u);
  const auto start = std::chrono::steady_clock::now();
  const Picture picture =
      look(page, "velReady.then((time) => console.log('test ' + Math.round(time) + ' ms'))", "1", true);
  // The limit is for machines that do much else; what it takes is told.
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(40));
  RecordProperty("first_picture", said_);
  EXPECT_EQ(colour_name(picture.at(0.63, 0.45)), 'w');
}
