#include <gtest/gtest.h>

#include "coResourceTable.h"
#include "velResourceTable.h"
#include "vlnResourceHandler.h"
#include "vlnResourceTypes.h"

namespace {

class Validator : public vlnValidator {
 public:
  bool validate_int(const utString&, const utString& value) override { return value == "3"; }
  bool validate_double(const utString&, const utString& value) override { return value == "1.5" || value == "1e3"; }
};

}  // namespace

TEST(ResourceTypes, EveryKeyOfTheSuiteHasOne) {
  const coResourceTable& table = vel_resource_table_inquire();
  ASSERT_GT(table.count(), 17U);
  for (std::size_t i = 0; i < table.count(); ++i) {
    const vlnResourceType* type = vlnResourceType::look_up_type(table.at(i).key());
    ASSERT_TRUE(type) << table.at(i).key().c_str();
    EXPECT_TRUE(type->matching_type(&table.at(i)));
  }
  EXPECT_EQ(vlnResourceType::look_up_type("NO_SUCH_KEY"), nullptr);
}

TEST(ResourceTypes, KeysThatAreAddedLaterAreFound) {
  EXPECT_EQ(vlnResourceType::look_up_type("ADDED_LATER"), nullptr);
  vel_resource_table_inquire().put(std::make_unique<coResource<utBool>>("ADDED_LATER", utTRUE));
  const vlnResourceType* type = vlnResourceType::look_up_type("ADDED_LATER");
  ASSERT_TRUE(dynamic_cast<const vlnResourceType_utBool*>(type));
  const coResource<utBool> off("ADDED_LATER", utFALSE);
  EXPECT_EQ(type->as_string(&off), "False");
  EXPECT_EQ(type->display(&off), "False");
}

TEST(ResourceHandler, ChecksByTypeWithoutRegardToCase) {
  Validator validator;
  const struct {
    const char *key, *value;
    int valid;
  } cases[] = {{"SCALE", "1.5", 1},        {"SCALE", "1E3", 1},          {"SCALE", "x", 0},
               {"DIGITS", "3", 1},         {"DIGITS", "4", 0},           {"SOLID_NAME", "Any Thing", 1},
               {"WELD_POINTS", "TRUE", 1}, {"WELD_POINTS", "0", 1},      {"WELD_POINTS", "yes", 0},
               {"LENGTH_UNIT", "InCh", 1}, {"LENGTH_UNIT", "parsec", 0}, {"FILE_FORMAT", "ASCII", 1},
               {"STEP_AP", "ap242", 1},    {"NO_SUCH_KEY", "1", 0}};
  for (const auto& c : cases) {
    const vlnResourceHandler handler(&validator, c.key);
    EXPECT_EQ(handler.validate(c.value), c.valid) << c.key << "=" << c.value;
    velTableInstance table;
    EXPECT_EQ(handler.insert(c.value, table), c.valid);
  }
  EXPECT_EQ(vlnResourceHandler(&validator, "SOLID_NAME").validate(utString()), 0) << "null is no value";
  EXPECT_EQ(vlnResourceHandler(nullptr, "SCALE").validate("1.5"), 0) << "nobody to ask";
}

TEST(ResourceHandler, StoresTheValueAsGiven) {
  Validator validator;
  velTableInstance table;
  EXPECT_TRUE(vlnResourceHandler(&validator, "SOLID_NAME").insert("Mixed Case", table));
  EXPECT_EQ(table.value<utString>("SOLID_NAME"), "Mixed Case");
  EXPECT_TRUE(vlnResourceHandler(&validator, "LENGTH_UNIT").insert("INCH", table));
  EXPECT_EQ(table.value<velLengthUnit>("LENGTH_UNIT"), velLENGTH_INCH);
  const coResource<double> scale("OTHER", 2.5);
  vlnResourceHandler(&validator, "SCALE").add_resource(&scale, table);
  EXPECT_EQ(table.value<double>("SCALE"), 2.5);
}
