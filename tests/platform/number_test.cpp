#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "apNumberText.h"

TEST(Numbers, RealNumbersAsCadFilesHoldThem) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  struct Case {
    std::string text;
    double value;
    std::string rest;
  } cases[] = {
      {"1", 1, ""},
      {"-0.5,", -0.5, ","},
      {"+3", 3, ""},
      {"1.", 1, ""},
      {".5", .5, ""},
      {"-.5 ", -.5, " "},
      {"1.e3", 1000, ""},
      {"2.5E-1x", .25, "x"},
      {"1d3", 1000, ""},
      {"1.5D+02)", 150, ")"},
      {"+1.D-1", .1, ""},
      {"1d", 1, "d"},
      {"1dx", 1, "dx"},
      {"1e5d2", 1e5, "d2"},
      {"1e", 1, "e"},
      {"inf", infinity, ""},
      {"-INF", -infinity, ""},
      {"1e400", infinity, ""},
      {"-1e400", -infinity, ""},
      {"1e-400", 0, ""},
      {"0.00001e-320", 0, ""},
      {"1e99999999999999999999", infinity, ""},
      {"1e-99999999999999999999", 0, ""},
      {std::string(400, '9'), infinity, ""},
      {"0." + std::string(400, '0') + "1", 0, ""},
      {"0x10", 0, "x10"},
      {"1,5", 1, ",5"},
      {"9007199254740993", 9007199254740992.0, ""},
  };
  for (const Case& c : cases) {
    std::string_view text = c.text;
    double value = 7;
    EXPECT_TRUE(ap_take_double(text, value)) << c.text;
    EXPECT_EQ(value, c.value) << c.text;
    EXPECT_EQ(text, c.rest) << c.text;
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
