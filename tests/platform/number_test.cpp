#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "apNumberChecks.h"
#include "apNumberText.h"

TEST(Numbers, RealNumbersAsCadFilesHoldThem) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  const std::string nines(400, '9'), tiny = "0." + std::string(400, '0') + "1";
  const struct {
    double value;
    std::vector<std::pair<std::string, const char*>> texts;  // each with what is left behind the number
  } cases[] = {
      {1, {{"1", ""}, {"1.", ""}, {"1d", "d"}, {"1dx", "dx"}, {"1e", "e"}, {"1,5", ",5"}}},
      {-.5, {{"-0.5,", ","}, {"-.5 ", " "}}},
      {.5, {{".5", ""}, {"+.5", ""}}},
      {1000, {{"1.e3", ""}, {"1d3", ""}}},
      {150, {{"1.5D+02)", ")"}}},
      {.1, {{"+1.D-1", ""}}},
      {.25, {{"2.5E-1x", "x"}}},
      {1e5, {{"1e5d2", "d2"}}},
      {infinity, {{"inf", ""}, {"1e400", ""}, {"1e99999999999999999999", ""}, {nines, ""}}},
      {-infinity, {{"-INF", ""}, {"-1e400", ""}}},
      {0, {{"1e-400", ""}, {"0.00001e-320", ""}, {"1e-99999999999999999999", ""}, {tiny, ""}, {"0x10", "x10"}}},
      {9007199254740992.0, {{"9007199254740993", ""}}}};
  for (const auto& c : cases) {
    for (const auto& [given, rest] : c.texts) {
      std::string_view text = given;
      double value = 7;
      EXPECT_TRUE(ap_take_double(text, value)) << given;
      EXPECT_EQ(value, c.value) << given;
      EXPECT_EQ(text, rest) << given;
    }
  }
  for (const char* none : {"", "+", "-", "+-1", "-+1", ".", "e5", " 1", "x", "d3", "++1"}) {
    std::string_view text = none;
    double value = 7;
    EXPECT_FALSE(ap_take_double(text, value)) << none;
    EXPECT_EQ(text, none);
    EXPECT_EQ(value, 7) << none;
  }
  std::string_view nan = "nan";
  double value = 0;
  EXPECT_TRUE(ap_take_double(nan, value) && std::isnan(value));
}

TEST(Numbers, WholeTexts) {
  double real = 0;
  EXPECT_TRUE(ap_parse_double(" 2.5\r\n", real) && real == 2.5);
  EXPECT_FALSE(ap_parse_double("2.5 3", real));
  long long whole = 0;
  EXPECT_TRUE(ap_parse_int(" +12 ", whole) && whole == 12);
  for (const char* none : {"", "1.5", "99999999999999999999", "+-1"}) EXPECT_FALSE(ap_parse_int(none, whole)) << none;
}

TEST(Numbers, WrittenNumbersReadBackTheSame) {
  for (double number : {0.1, -1e-308, 5e-324, 1.7976931348623157e308, 1e22, -123456789.123456789, 1.0 / 3}) {
    char room[ap_number_room];
    double value = 0;
    EXPECT_TRUE(ap_parse_double({room, ap_write_number(room, number)}, value));
    EXPECT_EQ(value, number);
  }
  char room[ap_number_room];
  EXPECT_EQ(std::string(room, ap_write_number(room, 0.1f)), "0.1");
}

TEST(Numbers, OneBadNumberIsFoundAnywhereInALongArray) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  std::vector<double> reals(600, -std::numeric_limits<double>::max());
  std::vector<std::uint32_t> numbers(600, 7);
  EXPECT_TRUE(ap_all_finite(reals) && ap_all_at_most(numbers, 7));
  for (std::size_t place : {0, 255, 256, 511, 512, 599}) {
    for (double bad : {infinity, -infinity, std::nan("")}) {
      reals[place] = bad;
      EXPECT_FALSE(ap_all_finite(reals)) << place << " " << bad;
    }
    reals[place] = std::numeric_limits<double>::denorm_min();
    for (std::uint32_t bad : {8u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
      numbers[place] = bad;
      EXPECT_FALSE(ap_all_at_most(numbers, 7)) << place << " " << bad;
      EXPECT_FALSE(ap_all_at_most(numbers, bad - 1)) << place << " " << bad;
      EXPECT_TRUE(ap_all_at_most(numbers, bad)) << place << " " << bad;
    }
    numbers[place] = 0;
  }
}
