#include <gtest/gtest.h>

#include "CommaLocale.h"
#include "coResourceTable.h"
#include "velResourceTable.h"
#include "vlnResourceHandler.h"
#include "vlnResourceTypes.h"

namespace {

class Validator : public vlnValidator {
 public:
  bool validate_int(const utString&, const utString& value) override { return value == "3"; }
  bool validate_double(const utString&, const utString& value) override {
    return value == "1.5" || value == "1e3" || value == "2,5" || value == "no number";
  }
};

struct OpenType : vlnResourceType_utString {
  using vlnResourceType::look_up_type;
};

// A resource of a type that the suite does not know.
struct OddResource : coResourceBase {
  OddResource() : coResourceBase("ODD") {}
  utString text() const override { return "odd"; }
  std::unique_ptr<coResourceBase> with_text(const utString&) const override { return nullptr; }
};

std::vector<std::string> valid_strings(const char* key) {
  utStringcoDList list;
  vlnResourceHandler(nullptr, key).valid_strings(list);
  std::vector<std::string> result;
  for (std::size_t i = 0; i < list.count(); ++i) result.push_back(list[i].str());
  return result;
}

}  // namespace

TEST(ResourceTypes, KeysThatAreAddedLaterAreFoundAndTypesSeenAgainWithTheNextUnknownKey) {
  EXPECT_EQ(vlnResourceType::look_up_type("ADDED_LATER"), nullptr);
  vel_resource_table_inquire().put(std::make_unique<coResource<utBool>>("ADDED_LATER", utTRUE));
  const vlnResourceType* type = vlnResourceType::look_up_type("ADDED_LATER");
  ASSERT_TRUE(dynamic_cast<const vlnResourceType_utBool*>(type));
  for (const auto& [value, shown] : {std::pair(utFALSE, "False"), {utTRUE, "True"}}) {
    const coResource<utBool> resource("ADDED_LATER", value);
    EXPECT_EQ(type->as_string(&resource), shown);
    EXPECT_EQ(type->display(&resource), shown);
  }
  vel_resource_table_inquire().put(std::make_unique<coResource<double>>("ADDED_LATER", 1));
  EXPECT_EQ(vlnResourceType::look_up_type("ADDED_LATER"), type);
  EXPECT_EQ(vlnResourceType::look_up_type("NO_SUCH_KEY"), nullptr);
  EXPECT_TRUE(dynamic_cast<const vlnResourceType_double*>(vlnResourceType::look_up_type("ADDED_LATER")));
}

TEST(ResourceTypes, AnUnknownTypeIsText) {
  const OddResource odd;
  const vlnResourceType* text = OpenType::look_up_type("SOLID_NAME");
  EXPECT_TRUE(dynamic_cast<const vlnResourceType_utString*>(text));
  EXPECT_EQ(OpenType::look_up_type(&odd), text);
  EXPECT_EQ(text->as_string(&odd), "odd");
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
  EXPECT_EQ(vlnResourceHandler(&validator, "SCALE").insert("no number", table), 1);
  EXPECT_TRUE(table.keys().empty()) << "a table that refuses a value does not count";
  EXPECT_TRUE(vlnResourceHandler(&validator, "SOLID_NAME").insert("Mixed Case", table));
  EXPECT_EQ(table.value<utString>("SOLID_NAME"), "Mixed Case");
  EXPECT_TRUE(vlnResourceHandler(&validator, "LENGTH_UNIT").insert("INCH", table));
  EXPECT_EQ(table.value<velLengthUnit>("LENGTH_UNIT"), velLENGTH_INCH);
  const coResource<double> scale("OTHER", 2.5);
  vlnResourceHandler(&validator, "SCALE").add_resource(&scale, table);
  EXPECT_EQ(table.value<double>("SCALE"), 2.5);
}

TEST(ResourceHandler, EveryKeyHasATypeThatListsItsTexts) {
  EXPECT_EQ(valid_strings("WELD_POINTS"), (std::vector<std::string>{"False", "True"}));
  EXPECT_EQ(valid_strings("SOLID_NAME"), std::vector<std::string>{});
  EXPECT_EQ(valid_strings("NO_SUCH_KEY"), std::vector<std::string>{});
  const coResourceTable& table = vel_resource_table_inquire();
  std::size_t finite = 0;
  for (std::size_t i = 0; i < table.count(); ++i) {
    const char* key = table.at(i).key().c_str();
    const vlnResourceHandler handler(nullptr, key);
    ASSERT_TRUE(handler.type()) << key;
    EXPECT_TRUE(handler.type()->matching_type(&table.at(i))) << key;
    const std::vector<std::string> texts = valid_strings(key);
    for (const std::string& text : texts) EXPECT_TRUE(handler.validate(text)) << key << "=" << text;
    EXPECT_EQ(!texts.empty(), dynamic_cast<const vlnFiniteResourceType*>(handler.type()) != nullptr) << key;
    finite += !texts.empty();
  }
  EXPECT_GE(finite, 14u);
}

TEST(ResourceHandler, NumbersMayHaveTheFormOfTheLocale) {
  const CommaLocale locale;
  if (!locale.made()) GTEST_SKIP() << "the C library has no UTF-8 locale to copy";
  Validator validator;
  const vlnResourceHandler handler(&validator, "SCALE");
  velTableInstance table;
  for (const auto& [text, value] : {std::pair("2,5", 2.5), {"1.5", 1.5}}) {
    EXPECT_EQ(handler.insert(text, table), 1);
    EXPECT_EQ(table.value<double>("SCALE"), value);
  }
  const coResource<double> scale("SCALE", 2.5);
  EXPECT_EQ(handler.display(&scale), "2,5");
  EXPECT_EQ(handler.type()->as_string(&scale), "2.5");
}

TEST(ResourceHandler, NothingIsShownOrAddedForANullResource) {
  for (const char* key : {"SOLID_NAME", "SCALE", "WELD_POINTS", "LENGTH_UNIT", "NO_SUCH_KEY"}) {
    const vlnResourceHandler handler(nullptr, key);
    velTableInstance table;
    handler.add_resource(nullptr, table);
    EXPECT_TRUE(table.keys().empty());
    EXPECT_TRUE(handler.display(nullptr).empty());
  }
}
