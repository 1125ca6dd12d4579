#include <gtest/gtest.h>
#include <locale.h>

#include "CommaLocale.h"
#include "coPageArr.h"
#include "coResourceTableMaker.h"
#include "velFileFormat.h"
#include "velResourceFile.h"
#include "velResourceTable.h"
#include "velTableInstance.h"
#include "velnlsLocaleNumbers.h"

TEST(PageArray, AddressesStayAndTheWalkCoversAll) {
  coPageArr<int> array;
  const int* first = &array.append(0);
  for (int i = 1; i < 200; ++i) array.append(i);
  EXPECT_EQ(first, &array[0]);
  coPageArr<int> copy(array);
  array.clear();
  EXPECT_EQ(array.count(), 0u);
  auto empty = array.iterator();
  EXPECT_EQ(++empty, 0);
  int expected = 0;
  for (auto each = copy.iterator(); ++each;) EXPECT_EQ(each(), expected++);
  EXPECT_EQ(expected, 200);
}

TEST(ResourceValues, TakeTheirOwnTextsOnly) {
  const coResourceTableMaker maker(vel_resource_table_inquire());
  // What comes of "key=text": the error, or how the value is shown.
  auto made = [&](const std::string& entry) {
    const auto equals = entry.find('=');
    const std::string key = entry.substr(0, equals);
    coResourceTable table;
    const int error = maker.create_entry(key, entry.substr(equals + 1), table);
    EXPECT_EQ(table.count(), error ? 0u : 1u) << entry;
    return error ? "error " + std::to_string(error) : table.find(key)->text().str();
  };
  const std::pair<const char*, const char*> good[] = {{"SCALE=2.50", "2.5"},          {"DIGITS=7", "7"},
                                                      {"WELD_POINTS=FALSE", "0"},     {"WELD_POINTS=1", "1"},
                                                      {"LENGTH_UNIT=INCH", "inch"},   {"REPRESENTATION=as-is", "as is"},
                                                      {"FILE_FORMAT=Ascii", "ascii"}, {"SOLID_NAME=", ""}};
  for (const auto& [entry, shown] : good) EXPECT_EQ(made(entry), shown) << entry;
  for (const char* entry : {"NO_SUCH_KEY=1", "scale=1"}) EXPECT_EQ(made(entry), "error 1") << entry;
  for (const char* entry : {"SCALE=1e400", "SCALE=nan", "SCALE=2,5", "SCALE=", "SCALE=1 2", "DIGITS=7.0",
                            "DIGITS=3000000000", "WELD_POINTS=yes", "LENGTH_UNIT=8"}) {
    EXPECT_EQ(made(entry), "error 2") << entry;
  }
}

TEST(ResourceFile, BrokenLinesCostThemselvesOnly) {
  TemporaryDirectory directory;
  const std::string file = directory.write("STL.rsc",
                                           "\xEF\xBB\xBF# not of the key\r\n\r\n# The form\r\n#  of the file.\r\n"
                                           "FILE_FORMAT = ascii \r\n"
                                           "no equals sign\n= no key\nTWO WORDS = 1\n"
                                           "  SOLID_NAME = a = b # c\nDIGITS=\nSCALE = 2");
  apStatus status;
  const auto read = velResourceFile::read(file, status);
  ASSERT_EQ(read.entries().size(), 4u);
  EXPECT_EQ(read.entries()[0].description, "The form of the file.");
  EXPECT_EQ(read.entries()[0].value, "ascii");
  EXPECT_EQ(read.entries()[1].value, "a = b # c");
  EXPECT_EQ(read.entries()[3].line, 11);
  ASSERT_EQ(read.problems().size(), 3u);
  EXPECT_EQ(read.problems()[2].line, 8);

  velTableInstance table;
  table.initialise(file);
  EXPECT_EQ(table.value<velFileFormat>("FILE_FORMAT"), velFORMAT_ASCII);
  EXPECT_EQ(table.value<double>("SCALE"), 2);
  EXPECT_EQ(table.problems().size(), 4u);  // an empty text is no whole number
  EXPECT_EQ(table.problems().back(), file + ", line 10: \"\" is no value of DIGITS");
}

TEST(TableInstance, ValuesThenParentThenDefaults) {
  TemporaryDirectory directory;
  velTableInstance parent;
  EXPECT_EQ(parent.add_resource("DIGITS", "5"), 1);
  velTableInstance table(&parent);
  EXPECT_EQ(table.add_resource("SCALE", "3"), 1);
  EXPECT_EQ(table.add_resource("SCALE", "x"), 0);
  velTableInstance copy = table;
  copy.add_resource("SCALE", "4");
  EXPECT_EQ(table.value<double>("SCALE"), 3);
  EXPECT_EQ(table.value<int>("DIGITS"), 5);
  EXPECT_EQ(table.value<utBool>("WELD_POINTS"), utTRUE);
  EXPECT_EQ(table.value<int>("SCALE", -1), -1);
  EXPECT_EQ(table.keys().size(), 1u);

  table.initialise(directory / "missing");
  EXPECT_EQ(table.value<double>("SCALE"), 1);
  EXPECT_TRUE(table.problems().empty() && table.keys().empty());
  table.initialise(directory.path().string());
  EXPECT_EQ(table.problems().size(), 1u);
}

static bool reads(const char* text) {
  double value = 0;
  return co_value_from_text(utString(text), value) && value == 2.5;
}
static bool holds(const char* right, const char* wrong) {
  return reads(right) && !reads(wrong) && co_value_to_text(2.5) == right;
}

TEST(LocaleNumbers, HoldForTheirLifetimeAndNest) {
  const CommaLocale locale;
  if (!locale.made()) GTEST_SKIP() << "the C library has no UTF-8 locale to copy";
  const locale_t before = uselocale(nullptr);
  {
    velnlsLocaleNumbers outer;
    const locale_t during = uselocale(nullptr);
    EXPECT_TRUE(holds("2,5", "2.5") && !reads(" 2,5"));
    { velnlsLocaleNumbers inner; }
    EXPECT_EQ(uselocale(nullptr), during);
  }
  EXPECT_EQ(uselocale(nullptr), before);
  EXPECT_TRUE(holds("2.5", "2,5"));

  // A host's own setlocale changes nothing.
  ASSERT_NE(setlocale(LC_ALL, ""), nullptr);
  EXPECT_TRUE(holds("2.5", "2,5"));
  setlocale(LC_ALL, "C");
}

TEST(LocaleNumbers, AnUnknownLocaleChangesNothing) {
  setenv("LC_ALL", "no_SUCH.locale", 1);
  const locale_t before = uselocale(nullptr);
  velnlsLocaleNumbers numbers;
  EXPECT_EQ(uselocale(nullptr), before);
  EXPECT_TRUE(reads("2.5"));
  unsetenv("LC_ALL");
}
