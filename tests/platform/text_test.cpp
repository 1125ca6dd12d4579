#include <gtest/gtest.h>

#include <string>

#include "apStringCompareInsensitive.h"
#include "apStringEncodingChooser.h"
#include "apStringEncodings.h"
#include "utString.h"

namespace {

std::wstring decoded(const std::string& bytes) {
  apStatus status;
  std::wstring text;
  apUtf8Encoding().decode(bytes, text, status);
  EXPECT_TRUE(status.ok());
  return text;
}

std::string encoded(const std::wstring& text) {
  apStatus status;
  std::string bytes;
  apUtf8Encoding().encode(text, bytes, status);
  EXPECT_TRUE(status.ok());
  return bytes;
}

}  // namespace

TEST(Utf8, EveryByteSequenceComesBackAndOnlyValidOnesAreCharacters) {
  const std::pair<std::string, std::wstring> cases[] = {
      {"", L""},
      {std::string("a\0b", 3), std::wstring(L"a\0b", 3)},
      {"eight ASCII bytes and \xC3\xA9 more than eight", L"eight ASCII bytes and \u00E9 more than eight"},
      {"\xE2\x82\xAC\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF", L"\u20AC\U0001F600\U0010FFFF"},
      {"\xEF\xBF\xBF\xED\x9F\xBF\xEE\x80\x80", L"\uFFFF\uD7FF\uE000"},
      {"\x80", L"\xDC80"},
      {"\xFF\xFE", L"\xDCFF\xDCFE"},
      {"\xC3", L"\xDCC3"},  // cut off
      {"\xE2\x82"
       "a",
       L"\xDCE2\xDC82"
       L"a"},                                             // cut off by another character
      {"\xC0\xAF", L"\xDCC0\xDCAF"},                      // overlong
      {"\xE0\x80\xAF", L"\xDCE0\xDC80\xDCAF"},            // overlong
      {"\xF0\x80\x80\xAF", L"\xDCF0\xDC80\xDC80\xDCAF"},  // overlong
      {"\xED\xA0\x80", L"\xDCED\xDCA0\xDC80"},            // a surrogate
      {"\xED\xB2\x80", L"\xDCED\xDCB2\xDC80"},            // the very code point that stands for a byte
      {"\xF4\x90\x80\x80", L"\xDCF4\xDC90\xDC80\xDC80"},  // beyond Unicode
      {"\xF8\x88\x80\x80\x80", L"\xDCF8\xDC88\xDC80\xDC80\xDC80"}};
  for (const auto& [bytes, text] : cases) {
    EXPECT_EQ(decoded(bytes), text);
    EXPECT_EQ(encoded(decoded(bytes)), bytes);
  }
  // Two halves of a name, decoded apart and joined.
  EXPECT_EQ(encoded(decoded("\xC3") + decoded("\xA9")), "\xC3\xA9");
  for (int a = 0; a < 256; ++a) {
    for (int b = 0; b < 256; ++b) {
      const std::string bytes{static_cast<char>(a), static_cast<char>(b), '\x82', '\xAC', 'z'};
      ASSERT_EQ(encoded(decoded(bytes)), bytes);
    }
  }
}

TEST(Utf8, WhatIsNoCharacterFails) {
  for (wchar_t bad : {wchar_t{0xD800}, wchar_t{0xDC7F}, wchar_t{0xDD00}, wchar_t{0x110000}, wchar_t{-1}}) {
    apStatus status;
    EXPECT_TRUE(apUtf8Encoding().to_utString(apString(std::wstring(1, bad)), status).is_null());
    EXPECT_FALSE(status.ok());
  }
}

TEST(Encodings, ByNameAndWithinTheirRange) {
  const apStringEncodingChooser chooser;
  const auto* latin1 = chooser.named("iso-8859-1");
  const auto* ascii = chooser.named("Ascii");
  for (const char* name : {"utf-8", "", "no such thing"}) EXPECT_EQ(chooser.named(name), chooser.ut_encoding());
  EXPECT_EQ(latin1->to_apString("\xE9").text(), L"\u00E9");
  EXPECT_EQ(latin1->to_utString(apString(L"\u00E9")), "\xE9");
  EXPECT_TRUE(latin1->to_utString(apString(L"\u20AC")).is_null());
  EXPECT_TRUE(ascii->to_apString("caf\xE9").invalid());
  EXPECT_TRUE(ascii->to_utString(apString(L"caf\u00E9")).is_null());
  for (const auto* encoding : {chooser.ut_encoding(), latin1, ascii}) {
    EXPECT_FALSE(encoding->to_apString(utString()).invalid());
    EXPECT_FALSE(encoding->to_utString(apString(L"")).is_null());
    EXPECT_TRUE(encoding->to_utString(apString()).is_null());
  }
}

TEST(Fold, OneFoldForComparisonsAndKeys) {
  using Pairs = std::vector<std::pair<utString, utString>>;
  const Pairs equal{{"STL", "stl"},
                    {"\u00C9t\u00C9", "\u00E9t\u00E9"},
                    {"\u0178", "\u00FF"},
                    {"\u0100", "\u0101"},
                    {"\u0394", "\u03B4"},
                    {"\u042F", "\u044F"},
                    {"\u0401", "\u0451"},
                    {"\u0531", "\u0561"},
                    {"\u1E02", "\u1E03"},
                    {"\uFF21", "\uFF41"},
                    {"a\xFF", "A\xFF"},
                    {"", ""},
                    {"\U00010400", "\U00010428"}};
  // The signs between the letters are none.
  const Pairs different{{"[STL]", "{stl}"}, {"\u00D7", "\u00F7"}, {"\u0101", "\u0102"},
                        {"\u00DF", "ss"},   {"a\xFF", "a\xFE"},   {"a", "a\u00E9"}};
  const auto* encoding = apStringEncodingChooser().ut_encoding();
  const apStringCompareInsensitive compare(encoding);
  for (const Pairs* pairs : {&equal, &different}) {
    for (const auto& [left, right] : *pairs) {
      EXPECT_EQ(left.case_compare(right), pairs == &equal ? 1 : 0) << left.str() << " " << right.str();
      EXPECT_EQ(left.lower_case() == right.lower_case(), pairs == &equal) << left.str() << " " << right.str();
      EXPECT_EQ(compare.equal(encoding->to_apString(left), encoding->to_apString(right)), pairs == &equal);
    }
  }
  EXPECT_FALSE(compare.equal(apString(), apString()));
  for (wchar_t c = 0; c < 0x11000; ++c) ASSERT_EQ(ap_fold(ap_fold(c)), ap_fold(c)) << std::hex << int(c);
}

TEST(Strings, NullAndInvalidDifferFromEmpty) {
  EXPECT_TRUE(utString(static_cast<const char*>(nullptr)).is_null());
  EXPECT_FALSE(utString("").is_null());
  EXPECT_EQ(utString(), "");
  EXPECT_STREQ(utString().c_str(), "");
  EXPECT_TRUE(utString().lower_case().is_null());
  EXPECT_EQ(utString("abc").substr(7), "");
  EXPECT_TRUE(apString(static_cast<const char*>(nullptr)).invalid());
  EXPECT_FALSE(apString(L"") == apString());
  EXPECT_EQ(co_hash(apString("a")), co_hash(apString(L"a")));
  EXPECT_TRUE((apString() + apString()).invalid());
}

TEST(Strings, ReplaceAllDoesNotLookAtWhatItInserted) {
  const wchar_t* const cases[][4] = {{L"aaa", L"a", L"aa", L"aaaaaa"},
                                     {L"aaa", L"aa", L"b", L"ba"},
                                     {L"abc", L"", L"x", L"abc"},
                                     {L"xbx", L"x", L"", L"b"}};
  for (const auto& [text, from, to, result] : cases) EXPECT_EQ(apString(text).replace_all(from, to).text(), result);
  EXPECT_TRUE(apString().replace_all(L"a", L"b").invalid());
}
