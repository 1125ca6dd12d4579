#include <gtest/gtest.h>

#include <filesystem>
#include <numbers>

#include "CountedService.h"
#include "CountingLibraries.h"
#include "TemporaryDirectory.h"
#include "unitsService.h"
#include "vlnServices.h"

namespace fs = std::filesystem;

namespace {

using Events = std::vector<std::string>;

class Services : public testing::Test {
 protected:
  Services() { give_manager(); }

  std::unique_ptr<vlnServiceDllManager> manager(apDynamicLibraryLoader* loader, velabsAppInfo* info) const {
    return std::make_unique<vlnServiceDllManager>(vlnSearchPath(apString(directory_.path().c_str())), loader, info);
  }
  void give_manager() {
    auto given = manager(&loader_, &app_info_);
    services_->set_dll_manager(given, &app_info_);
    EXPECT_FALSE(given);
  }
  // Puts a fixture in place as the library of a key, as an installer does: beside it first, then by renaming.
  void install(const std::string& fixture, const std::string& key = "test") const {
    const std::string target = directory_ / (key + "svc.dll");
    fs::copy_file(fs::path(VEL_SERVICE_FIXTURES) / (fixture + ".dll"), target + ".new");
    fs::rename(target + ".new", target);
  }
  // Null when there is no such service.
  CountedService* ask(const char* key = "test") {
    vluBaseServicePtr found;
    if (!services_->service(vluServiceKey(key), found)) return nullptr;
    auto* service = found.as<CountedService>();
    service->events = &events_;
    return service;
  }
  Events take_events() { return std::exchange(events_, {}); }

  TemporaryDirectory directory_;
  Events events_;
  CountingLibraries libraries_;
  apDynamicLibraryLoader loader_{&libraries_};
  velabsAppInfo app_info_{"test", "1", "test", "nobody", "UTF-8"};
  std::unique_ptr<vlnServices> services_ = std::make_unique<vlnServices>();
};

const Events end_of_life{"instance destroyed", "unloaded"};

}  // namespace

TEST_F(Services, ALibraryIsLoadedOnFirstUseAndOnce) {
  install("first");
  EXPECT_EQ(libraries_.opened, 0);
  const CountedService* service = ask();
  ASSERT_TRUE(service);
  EXPECT_EQ(service->build, 1);
  EXPECT_EQ(service->app_info, &app_info_);
  EXPECT_EQ(ask(), service);
  EXPECT_EQ(libraries_.opened, 1);
  services_.reset();
  EXPECT_EQ(events_, end_of_life);
}

TEST_F(Services, AfterRemovalTheLibraryIsLoadedAfresh) {
  install("first");
  ASSERT_TRUE(ask());
  services_->remove_service(vluServiceKey("test"));
  EXPECT_EQ(take_events(), end_of_life);

  install("second");
  ASSERT_TRUE(ask());
  EXPECT_EQ(ask()->build, 2);
  fs::remove(directory_ / "testsvc.dll");
  EXPECT_TRUE(ask());
  services_->remove_service(vluServiceKey("test"));
  services_->remove_service(vluServiceKey("test"));
  EXPECT_EQ(take_events(), end_of_life);
  EXPECT_FALSE(ask());
}

TEST_F(Services, AnotherManagerDropsWhatTheFirstOneLoaded) {
  install("first");
  int registered = 0;
  services_->add_service(vluServiceKey("own"), vluBaseServicePtr(&registered));
  ASSERT_TRUE(ask());
  install("second");
  give_manager();
  EXPECT_EQ(take_events(), end_of_life);
  ASSERT_TRUE(ask());
  EXPECT_EQ(ask()->build, 2);

  std::unique_ptr<vlnServiceDllManager> none;
  services_->set_dll_manager(none, nullptr);
  EXPECT_EQ(take_events(), end_of_life);
  EXPECT_FALSE(ask());
  vluBaseServicePtr found;
  EXPECT_TRUE(services_->service(vluServiceKey("own"), found));
  EXPECT_EQ(found.get(), &registered);
}

TEST_F(Services, WhatServesNobodyIsAskedEachTimeAndLoadedOnce) {
  for (const char* fixture : {"no_entry", "null_instance", "null_service", "throwing_entry", "throwing_instance"}) {
    libraries_.opened = 0;
    install(fixture, fixture);
    EXPECT_FALSE(ask(fixture) || ask(fixture)) << fixture;
    EXPECT_EQ(libraries_.opened, 1) << fixture;
  }
  // Once it was removed it may be better.
  install("first", "no_entry");
  services_->remove_service(vluServiceKey("no_entry"));
  EXPECT_TRUE(ask("no_entry"));
}

TEST_F(Services, WhatCannotBeLoadedIsTriedAgain) {
  EXPECT_FALSE(ask());
  directory_.write("testsvc.dll", "no library");
  EXPECT_FALSE(ask());
  install("first");
  EXPECT_TRUE(ask());
  // A key is no path, and one that the encoding cannot hold is no other key.
  install("first", "");
  install("first", "odd");
  EXPECT_FALSE(ask(("../" + directory_.path().filename().string() + "/odd").c_str()));
  velabsAppInfo ascii("test", "1", "test", "nobody", "ASCII");
  EXPECT_TRUE(manager(&loader_, &ascii)->load_dll(vluServiceKey("odd")));
  EXPECT_FALSE(manager(&loader_, &ascii)->load_dll(vluServiceKey("\xc3\xa9")));
  EXPECT_FALSE(manager(nullptr, nullptr)->load_dll(vluServiceKey("odd")));
}

TEST_F(Services, UnitsAreConvertedAndNamed) {
  fs::copy_file(VEL_UNITS_LIBRARY, directory_ / "unitssvc.dll");
  vluBaseServicePtr found;
  ASSERT_TRUE(services_->service(vluServiceKey(units_service_key), found));
  const auto* units = found.as<unitsService>();
  // The library names what the platform names, in both families.
  utStringcoDList lengths, angles;
  velLengthUnit_strings(lengths);
  velAngularUnit_strings(angles);
  for (std::size_t i = 0; i < lengths.count(); ++i) {
    EXPECT_EQ(lengths[i], units->length_name(static_cast<velLengthUnit>(i)));
    EXPECT_EQ(*units->length_symbol(static_cast<velLengthUnit>(i)) == '\0', i == velLENGTH_UNSPECIFIED);
  }
  for (std::size_t i = 0; i < angles.count(); ++i) {
    EXPECT_EQ(angles[i], units->angle_name(static_cast<velAngularUnit>(i)));
    EXPECT_NE(*units->angle_symbol(static_cast<velAngularUnit>(i)), '\0');
  }
  const auto no_length = static_cast<velLengthUnit>(velLENGTH_MILE + 1);
  const auto no_angle = static_cast<velAngularUnit>(velANGLE_TURN + 1);
  EXPECT_STREQ(units->length_name(no_length), "");
  EXPECT_STREQ(units->angle_symbol(no_angle), "");

  const struct {
    double value;
    velLengthUnit from, to;
    double result;
  } cases[] = {{2, velLENGTH_INCH, velLENGTH_MILLIMETRE, 50.8},  {25.4, velLENGTH_MILLIMETRE, velLENGTH_INCH, 1},
               {1, velLENGTH_MIL, velLENGTH_MICROMETRE, 25.4},   {0.3, velLENGTH_METRE, velLENGTH_MILLIMETRE, 300},
               {3, velLENGTH_FOOT, velLENGTH_YARD, 1},           {7, no_length, velLENGTH_INCH, 7},
               {254, velLENGTH_UNSPECIFIED, velLENGTH_INCH, 10}, {-1609.344, velLENGTH_METRE, velLENGTH_MILE, -1}};
  for (const auto& c : cases) EXPECT_EQ(units->convert_length(c.value, c.from, c.to), c.result) << c.result;

  EXPECT_EQ(units->convert_angle(180, velANGLE_DEGREE, velANGLE_RADIAN), std::numbers::pi);
  EXPECT_EQ(units->convert_angle(100, velANGLE_GRADIAN, velANGLE_DEGREE), 90);
  EXPECT_EQ(units->convert_angle(1.5, velANGLE_DEGREE, velANGLE_ARC_MINUTE), 90);
  EXPECT_EQ(units->convert_angle(370, velANGLE_DEGREE, no_angle), 370);

  // It leaves the process when it is no longer wanted.
  services_->remove_service(vluServiceKey(units_service_key));
  EXPECT_EQ(TemporaryDirectory::read("/proc/self/maps").find(directory_ / "unitssvc.dll"), std::string::npos);
}
