#include <gtest/gtest.h>

#include <stdexcept>

#include "Registry.h"
#include "vlnAppDirMap.h"
#include "vlnTranslator.h"

namespace {

class Loader : public vlnDLLLoader {
 public:
  explicit Loader(const std::string& root, std::vector<std::string>& calls, const CountingLibraries& libraries)
      : vlnDLLLoader(&libraries, apFrustrumChooser().file_operations()), root_(root), calls_(calls) {}
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
  bool validate_int(const utString&, const utString&) override { return true; }
  bool validate_double(const utString&, const utString& value) override { return value == "2"; }
};

// An application over an installation of fixture translators.
class Driver : public vlnTranslator {
 public:
  explicit Driver(const std::string& root) : root_(root) {
    initialise(std::make_shared<annDocument>(), std::make_shared<Validator>(), &libraries, nullptr);
  }

  void set_up_application() override { calls.push_back("set_up_application"); }
  utObserverPtr<velabsAppInfo> app_info() override { return calls.push_back("app_info"), &info_; }
  utObserverPtr<velabsOutput> primary_output() override { return calls.push_back("primary_output"), nullptr; }
  utObserverPtr<velabsOutput> secondary_output() override { return calls.push_back("secondary_output"), nullptr; }
  std::unique_ptr<vlnDLLLoader> create_dll_loader() override {
    calls.push_back("create_dll_loader");
    return std::make_unique<Loader>(root_, calls, libraries);
  }
  utString resolve_input_file(const utString& name) override { return utString(root_) + "/" + name; }
  void set_up_resources(const vlnTranslatorInfo* translator, velTableInstance& table,
                        const Resources& resources) override {
    vlnTranslator::set_up_resources(translator, table, resources);
    scale = table.value<double>("SCALE");
  }

  using vlnTranslator::get_input_dlls;
  using vlnTranslator::input_elements;
  using vlnTranslator::input_file;
  using vlnTranslator::num_input_files;
  using vlnTranslator::output_elements;
  using vlnTranslator::remove_output_file;
  using vlnTranslator::resource_path;

  std::vector<std::string> files() {
    std::vector<std::string> result;
    for (int i = 0; i < num_input_files(); ++i) result.push_back(input_file(i).str());
    return result;
  }

  CountingLibraries libraries;
  std::vector<std::string> calls;
  double scale = 0;

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
    dir.write("in.stl",
              "solid s\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 1 0 0\nvertex 0 1 0\n"
              "endloop\nendfacet\nendsolid s\n");
    dir.write("unknown.txt", "neither this nor that");
  }
  TemporaryDirectory dir;
};

}  // namespace

TEST_F(DriverTest, InitialisesInOrder) {
  const Driver driver(dir.path().string());
  EXPECT_EQ(driver.calls, (std::vector<std::string>{"set_up_application", "create_dll_loader", "app_info",
                                                    "create_app_dir_map", "finish_loading"}));
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
  EXPECT_TRUE(driver.run()) << "again";
  driver.remove_output_file();
  EXPECT_FALSE(std::filesystem::exists(dir / "out.good"));
}

TEST_F(DriverTest, WhatHasNoTranslatorStopsTheWholeRequest) {
  Driver driver(dir.path().string());
  const std::vector<utString> files{"in.stl", "unknown.txt"};
  driver.set_input_file_list(itIterator<utString>(files));
  driver.output_file_and_format(dir / "out.good", "Good");
  EXPECT_FALSE(driver.run());
  EXPECT_EQ(driver.num_passed() + driver.num_failed(), 0) << "the engine was not called";
  EXPECT_TRUE(driver.input_elements("/no/such").invalid());

  Driver other(dir.path().string());
  other.output_file_and_format(dir / "out.good", "Good");
  EXPECT_FALSE(other.run()) << "no input";
  other.set_input_file("in.stl");
  other.output_file_and_format(dir / "out.good", "no such");
  EXPECT_FALSE(other.run()) << "an unknown format";
  EXPECT_TRUE(other.output_elements("x", "no such").invalid());
  EXPECT_FALSE(std::filesystem::exists(dir / "out.good"));
}

TEST_F(DriverTest, OneFileReplacesTheListAndAListAppends) {
  Driver driver(dir.path().string());
  const std::vector<utString> more{"b", "c"};
  driver.set_input_file_list(itIterator<utString>(more));
  driver.set_input_file("a");
  EXPECT_EQ(driver.files(), std::vector<std::string>{"a"});
  driver.set_input_file_list(itIterator<utString>(more));
  EXPECT_EQ(driver.files(), (std::vector<std::string>{"a", "b", "c"}));
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

  EXPECT_FALSE(driver.input_elements(dir / "in.stl").invalid());
  EXPECT_EQ(driver.scale, 6);
  driver.set_input_resource("SCALE", "7");
  driver.set_input_resource("NO_SUCH_KEY", "2");
  driver.input_elements(dir / "in.stl");
  EXPECT_EQ(driver.scale, 6) << "a value that does not validate is skipped";
  driver.set_input_resource("SCALE", "2");
  driver.input_elements(dir / "in.stl");
  EXPECT_EQ(driver.scale, 2);
}
