#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <fstream>
#include <regex>
#include <sstream>

#include "Program.h"

namespace fs = std::filesystem;

namespace {

// A command that a page shows, after "$ ", and the lines below it.
struct Example {
  std::string command;
  std::vector<std::string> lines;
};

std::vector<std::string> lines_of(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::vector<Example> examples_in(const std::string& file) {
  const std::string page = TemporaryDirectory::read(file);
  const std::regex example("\n    \\$ (?:\\./)?vel (.*)((?:\n    (?!\\$ ).*|\n(?=\n))*)");
  std::vector<Example> examples;
  for (std::sregex_iterator found(page.begin(), page.end(), example), end; found != end; ++found) {
    examples.push_back({(*found)[1], lines_of(std::regex_replace((*found)[2].str(), std::regex("\n    "), "\n"))});
    std::vector<std::string>& lines = examples.back().lines;
    if (!lines.empty()) lines.erase(lines.begin());
    while (!lines.empty() && lines.back().empty()) lines.pop_back();
  }
  return examples;
}

// "..." alone on a line is any number of lines.
bool matches(const std::vector<std::string>& shown, std::size_t at, const std::vector<std::string>& actual,
             std::size_t from) {
  if (at == shown.size()) return from == actual.size();
  if (shown[at] != "...") {
    return from < actual.size() && shown[at] == actual[from] && matches(shown, at + 1, actual, from + 1);
  }
  for (std::size_t rest = from; rest <= actual.size(); ++rest) {
    if (matches(shown, at + 1, actual, rest)) return true;
  }
  return false;
}

void replace_all(std::string& text, const std::string& from, const std::string& to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != text.npos; at += to.size()) text.replace(at, from.size(), to);
}

// An installation with all translators of the build and the files that the pages name.
class Pages : public Installation {
 public:
  Pages() : Installation(false) {
    const fs::path built = VEL_BUILT_ROOT;
    for (const auto& entry : fs::directory_iterator(built / "sys/exec/lib")) add_library(entry.path());
    add_units();
    root.write("sys/exec/lib/old.dll", "");
    const fs::path samples = built / "file/examples";
    fs::copy(samples, work.path());
    fs::copy(samples, work / "examples");
    fs::copy(samples / "assembly.step", work / "part.step");
    const std::string stl = TemporaryDirectory::read(samples / "bracket.stl");
    work.write("cut.stl", stl.substr(0, 84 + 98 * 50));
    output_of("translate part.step -o inches.step --out length-unit=inch");
  }

  std::vector<std::string> output_of(const std::string& command) const {
    std::istringstream words(without_places(command));
    const Outcome outcome = run({std::istream_iterator<std::string>(words), {}});
    return lines_of(without_places(outcome.err + outcome.out));
  }

  // With the names of temporary places that pages and this installation have replaced by the same ones.
  std::string without_places(std::string text) const {
    replace_all(text, home.path().string(), "/home/ann/.config");
    replace_all(text, root.path().string(), "/opt/velbase");
    replace_all(text, temporary.path().string(), "/tmp");
    text = std::regex_replace(text, std::regex("/tmp/vel-view-\\w{6}/"), "VIEW/");
    replace_all(text, "/tmp/", "");
    return text;
  }
};

}  // namespace

TEST(Docs, ExamplesPrintWhatThePagesShow) {
  for (const char* needed : {"stepreader", "3mfreader", "pngwriter"}) {
    if (!fs::exists(std::string(VEL_BUILT_ROOT "/sys/exec/lib/") + needed + ".dll")) {
      GTEST_SKIP() << "the pages show all translators; " << needed << " was not built";
    }
  }
  const Pages pages;
  std::size_t compared = 0;
  for (const char* page : {"README.md", "docs/using-vel.md"}) {
    for (const Example& example : examples_in(std::string(VEL_SOURCES "/") + page)) {
      if (example.command == "list") {
        // The text around it says that a library was replaced before.
        fs::last_write_time(pages.library("stepwriter.dll"), fs::file_time_type::clock::now() + std::chrono::hours(1));
      }
      std::vector<std::string> shown;
      for (const std::string& line : example.lines) {
        if (!line.starts_with("vel: building")) shown.push_back(pages.without_places(line));
      }
      const std::vector<std::string> actual = pages.output_of(example.command);
      std::string printed;
      for (const std::string& line : actual) printed += line + "\n";
      // Some examples show the command alone.
      const bool good = shown.empty() ? printed.find("vel: error") == printed.npos : matches(shown, 0, actual, 0);
      EXPECT_TRUE(good) << page << ": vel " << example.command << "\n" << printed;
      ++compared;
    }
  }
  EXPECT_GT(compared, 15u);
}
