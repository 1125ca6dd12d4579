#include <gtest/gtest.h>

#include <stdexcept>

#include "RecordingOutput.h"
#include "Registry.h"
#include "vlnAppDirMap.h"
#include "vlnTranslator.h"
#include "vlnTranslatorCacheWriter.h"

namespace {

// In the order of destruction.
std::vector<std::string> destroyed;

class Loader : public vlnDLLLoader {
 public:
  explicit Loader(const std::string& root, std::vector<std::string>& calls, const CountingLibraries& libraries)
      : vlnDLLLoader(&libraries, apFrustrumChooser().file_operations()), root_(root), calls_(calls) {}
  ~Loader() override { destroyed.push_back("loader"); }
  void finish_loading() override { calls_.push_back("finish_loading"); }

 protected:
  std::shared_ptr<vlnIAppDirMap> create_app_dir_map() override {
    calls_.push_back("create_app_dir_map");
    const Registry registry;
    auto map = std::make_shared<vlnAppDirMap>(nullptr);
    map->initialise("", root_ + "/sys/exec", apPathName(L"app"), app_info().get(), registry.path(root_ + "/config"),
                    apPathName());
    return map;
  }

 private:
  std::string root_;
  std::vector<std::string>& calls_;
};

class Validator : public vlnValidator {
 public:
  ~Validator() override { destroyed.push_back("validator"); }
  bool validate_int(const utString&, const utString&) override { return true; }
  bool validate_double(const utString&, const utString& value) override { return value != "7"; }
};

// Without a lock: the driver under test has one thread.
class Section : public apICriticalSection {
 public:
  ~Section() override { destroyed.push_back("thread communication"); }
  void enter() override {}
  void leave() override {}
};

class Sections : public apISynchOperations {
  std::unique_ptr<apICriticalSection> make_critical_section() const override { return std::make_unique<Section>(); }
};

std::shared_ptr<annDocument> make_document() {
  return {new annDocument, [](annDocument* document) {
            destroyed.push_back("document");
            delete document;
          }};
}

// An application over an installation of fixture translators.
class Driver : public vlnTranslator {
 public:
  explicit Driver(const std::string& root, bool initialised = true) : root_(root) {
    if (initialised) initialise(make_document(), std::make_shared<Validator>(), &libraries, &sections);
  }

  void set_up_application() override { calls.push_back("set_up_application"); }
  utObserverPtr<velabsAppInfo> app_info() override { return calls.push_back("app_info"), &info_; }
  utObserverPtr<velabsOutput> primary_output() override { return calls.push_back("primary_output"), &primary; }
  utObserverPtr<velabsOutput> secondary_output() override { return calls.push_back("secondary_output"), &secondary; }
  std::unique_ptr<vlnDLLLoader> create_dll_loader() override {
    calls.push_back("create_dll_loader");
    return std::make_unique<Loader>(root_, calls, libraries);
  }
  utString resolve_input_file(const utString& name) override { return utString(root_) + "/" + name; }

  using vlnTranslator::get_input_dlls;
  using vlnTranslator::get_output_dlls;
  using vlnTranslator::get_thread_comm;
  using vlnTranslator::input_elements;
  using vlnTranslator::input_file;
  using vlnTranslator::num_input_files;
  using vlnTranslator::output_elements;
  using vlnTranslator::remove_output_file;
  using vlnTranslator::resource_path;

  std::string files() {
    std::string result;
    for (int i = 0; i < num_input_files(); ++i) result += input_file(i).str();
    return result;
  }

  CountingLibraries libraries;
  Sections sections;
  RecordingOutput primary, secondary;
  std::vector<std::string> calls;

 private:
  std::string root_;
  velabsAppInfo info_{"test", "1", "test", "nobody", "UTF-8"};
};

class DriverTest : public testing::Test {
 protected:
  DriverTest() {
    copy_fixture("good_input", dir.path() / "sys/exec/lib");
    copy_fixture("good_output", dir.path() / "sys/exec/lib");
    std::filesystem::create_directories(dir.path() / "config");
    dir.write("in.stl", "solid s\nendsolid s\n");
    dir.write("unknown.txt", "neither this nor that");
    dir.write("empty.stl", "");
  }

  // Makes both translators known from the cache alone.
  void write_cache() {
    Driver driver(dir.path().string());
    int written = 0;
    vlnTranslatorLoadStatus status(vlnLOAD_OK);
    const vlnTranslatorCacheWriter writer(dir.write("sys/schemas/translators/translators.lst", ""),
                                          *driver.get_input_dlls(), *driver.get_output_dlls(), nullptr, written,
                                          status);
    ASSERT_EQ(written, 2);
  }

  TemporaryDirectory dir;
};

}  // namespace

TEST_F(DriverTest, IsInitialisedAndDestroyedInOrder) {
  auto driver = std::make_unique<Driver>(dir.path().string());
  EXPECT_EQ(driver->calls, (std::vector<std::string>{"set_up_application", "create_dll_loader", "app_info",
                                                     "create_app_dir_map", "finish_loading"}));
  destroyed.clear();
  driver.reset();
  EXPECT_EQ(destroyed, (std::vector<std::string>{"document", "validator", "loader", "thread communication"}));
}

TEST_F(DriverTest, NothingHappensBeforeItIsInitialised) {
  Driver driver(dir.path().string(), false);
  driver.set_input_file("in.stl");
  driver.output_file_and_format(dir / "out.good", "GOOD");
  EXPECT_FALSE(driver.run());
  EXPECT_EQ(driver.num_passed() + driver.num_failed(), 0);
  EXPECT_TRUE(driver.input_elements(dir / "in.stl").invalid());
  EXPECT_TRUE(driver.output_elements("x", "GOOD").invalid());
  EXPECT_EQ(driver.resource_path(nullptr), "");
}

TEST_F(DriverTest, SetsOfAnEarlierLoadingStayUsable) {
  velabsAppInfo info("test", "1", "test", "nobody", "UTF-8");
  std::vector<std::string> calls;
  const CountingLibraries libraries;
  Loader loader(dir.path().string(), calls, libraries);
  loader.set_app_info(&info);
  std::unique_ptr<vlnTranslatorDlls> first_inputs, first_outputs, inputs, outputs;
  loader.load_dlls(first_inputs, first_outputs);
  loader.load_dlls(inputs, outputs);
  for (const auto* set : {&first_outputs, &outputs}) EXPECT_TRUE((*set)->translator_for_format("gOOD"));
}

TEST_F(DriverTest, TranslatesFromEndToEnd) {
  Driver driver(dir.path().string());
  EXPECT_EQ(driver.num_passed() + driver.num_failed(), 0) << "before any translation";
  driver.set_input_file("in.stl");
  driver.output_file_and_format(dir / "out.good", "GOOD");
  driver.calls.clear();
  EXPECT_TRUE(driver.run());
  EXPECT_EQ(driver.num_passed(), 1);
  EXPECT_EQ(driver.num_failed(), 0);
  EXPECT_EQ(TemporaryDirectory::read(dir / "out.good"), "part");
  const std::vector<std::string> fetched(driver.calls.end() - 3, driver.calls.end());
  EXPECT_EQ(fetched, (std::vector<std::string>{"secondary_output", "primary_output", "app_info"}));
  driver.get_thread_comm()->cancel();
  EXPECT_TRUE(driver.run()) << "again; a wish to stop belonged to the earlier request";
  EXPECT_EQ(driver.num_passed(), 1);
  driver.remove_output_file();
  EXPECT_FALSE(std::filesystem::exists(dir / "out.good"));
}

TEST_F(DriverTest, WhatHasNoTranslatorStopsTheWholeRequest) {
  Driver driver(dir.path().string());
  driver.output_file_and_format(dir / "out.good", "Good");
  EXPECT_FALSE(driver.run()) << "no input";
  driver.set_input_file("in.stl");
  EXPECT_TRUE(driver.run());
  driver.remove_output_file();
  const std::pair<const char*, const char*> cases[] = {{"unknown.txt", "no translator reads its content"},
                                                       {"missing.stl", "No such file or directory"},
                                                       {"config", "it is a directory"},
                                                       {"empty.stl", "it is empty"}};
  for (const auto& [file, reason] : cases) {
    driver.primary.messages.clear();
    driver.secondary.messages.clear();
    const std::vector<utString> bad{file};
    driver.set_input_file("in.stl");
    driver.set_input_file_list(itIterator<utString>(bad));
    EXPECT_FALSE(driver.run());
    EXPECT_EQ(driver.num_passed() + driver.num_failed(), 0) << "the engine was not called";
    ASSERT_EQ(driver.primary.messages.size(), 1U) << file;
    EXPECT_EQ(driver.primary.messages[0].find(dir / file + ": "), 0U) << driver.primary.messages[0];
    EXPECT_NE(driver.primary.messages[0].find(reason), std::string::npos) << driver.primary.messages[0];
    EXPECT_EQ(driver.secondary.messages, driver.primary.messages);
  }
  driver.set_input_file("in.stl");
  driver.output_file_and_format(dir / "out.good", "no such");
  EXPECT_FALSE(driver.run()) << "an unknown format";
  EXPECT_TRUE(driver.input_elements("/no/such").invalid() && driver.output_elements("x", "no such").invalid());
  EXPECT_FALSE(std::filesystem::exists(dir / "out.good"));
}

TEST_F(DriverTest, ATranslatorThatCannotBeLoadedIsTheEnginesToReport) {
  for (const char* library : {"good_input", "good_output"}) {
    write_cache();
    Driver driver(dir.path().string());
    EXPECT_EQ(driver.libraries.opened, 0);
    std::filesystem::remove(dir.path() / "sys/exec/lib" / (std::string(library) + ".dll"));
    driver.set_input_file("in.stl");
    driver.output_file_and_format(dir / "out.good", "Good");
    EXPECT_FALSE(driver.run());
    EXPECT_EQ(driver.num_failed(), 1) << library;
    EXPECT_EQ(driver.num_passed(), 0);
    ASSERT_EQ(driver.primary.messages.size(), 1U);
    EXPECT_NE(driver.primary.messages[0].find(library), std::string::npos) << driver.primary.messages[0];
    copy_fixture(library, dir.path() / "sys/exec/lib");
  }
}

TEST_F(DriverTest, OneFileReplacesTheListAndAListAppends) {
  Driver driver(dir.path().string());
  const std::vector<utString> more{"b", "c"};
  driver.set_input_file_list(itIterator<utString>(more));
  driver.set_input_file("a");
  EXPECT_EQ(driver.files(), "a");
  driver.set_input_file_list(itIterator<utString>(more));
  EXPECT_EQ(driver.files(), "abc");
  EXPECT_THROW(driver.input_file(-1), std::out_of_range);
  EXPECT_THROW(driver.input_file(3), std::out_of_range);
}

TEST_F(DriverTest, ResourcesComeFromTheFileAndFromTheRequest) {
  Driver driver(dir.path().string());
  const vlnTranslatorInfo* reader = driver.get_input_dlls()->translator_for_format("A / B X");
  EXPECT_EQ(driver.resource_path(reader), dir / "config/app/resources/default");
  dir.write("sys/schemas/resources/ABX.rsc", "SCALE = 5\n");
  EXPECT_EQ(driver.resource_path(reader), dir / "sys/schemas/resources/ABX.rsc");
  dir.write("config/app/resources/ABX.rsc", "SCALE = 6\n");
  EXPECT_EQ(driver.resource_path(reader), dir / "config/app/resources/ABX.rsc");

  const auto scale = [](const v2vTranslatorElements& elements) { return elements.resources()->value<double>("SCALE"); };
  EXPECT_FALSE(driver.input_elements(dir / "in.stl").invalid());
  EXPECT_EQ(scale(driver.input_elements(dir / "in.stl")), 6);
  driver.set_input_resource("SCALE", "7");
  driver.set_input_resource("NO_SUCH_KEY", "2");
  EXPECT_EQ(scale(driver.input_elements(dir / "in.stl")), 6) << "a value that does not validate is skipped";
  driver.set_input_resource("SCALE", "2");
  driver.set_output_resource("SCALE", "3");
  driver.set_output_resource("LENGTH_UNIT", "furlong");
  const v2vTranslatorElements input = driver.input_elements(dir / "in.stl");
  EXPECT_EQ(scale(driver.output_elements(dir / "out.good", "Good")), 3);
  EXPECT_EQ(scale(input), 2);

  const std::vector<utString> twice{"in.stl", "in.stl"};
  driver.set_input_file_list(itIterator<utString>(twice));
  driver.output_file_and_format(dir / "out.good", "Good");
  for (int turn = 0; turn < 2; ++turn) {
    driver.primary.messages.clear();
    EXPECT_TRUE(driver.run());
    const std::vector<std::string>& messages = driver.primary.messages;
    ASSERT_EQ(messages.size(), 3U) << "each once, however many files and runs";
    EXPECT_EQ(messages[0], "\"7\" is not a valid value of the resource SCALE; it is ignored");
    EXPECT_EQ(messages[1], "there is no resource NO_SUCH_KEY; its value \"2\" is ignored");
    const char* furlong = "\"furlong\" is not a valid value of the resource LENGTH_UNIT; it is ignored; use one of ";
    EXPECT_TRUE(messages[2].starts_with(furlong)) << messages[2];
  }
}
