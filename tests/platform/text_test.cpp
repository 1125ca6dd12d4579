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
  struct Case {
    std::string bytes;
    std::wstring text;
  } cases[] = {
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
      {"\xF8\x88\x80\x80\x80", L"\xDCF8\xDC88\xDC80\xDC80\xDC80"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(decoded(c.bytes), c.text);
    EXPECT_EQ(encoded(decoded(c.bytes)), c.bytes);
  }
  for (int a = 0; a < 256; ++a) {
    for (int b = 0; b < 256; ++b) {
      const std::string bytes{static_cast<char>(a), static_cast<char>(b), '\x82', '\xAC', 'z'};
      ASSERT_EQ(encoded(decoded(bytes)), bytes);
    }
  }
}

TEST(Utf8, EscapedBytesThatMakeACharacterKeepTheirBytes) {
  // Two halves of a name, decoded apart and joined: the bytes are the name's, whatever the characters are then.
  const std::wstring halves = decoded("\xC3") + decoded("\xA9");
  EXPECT_EQ(encoded(halves), "\xC3\xA9");
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
  EXPECT_EQ(chooser.named("utf-8"), chooser.ut_encoding());
  EXPECT_EQ(chooser.named(""), chooser.ut_encoding());
  EXPECT_EQ(chooser.named("no such thing"), chooser.ut_encoding());
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
  struct Case {
    const char* left;
    const char* right;
    bool equal;
  } cases[] = {
      {"STL", "stl", true},
      {"[STL]", "{stl}", false},
      {"\u00C9t\u00C9", "\u00E9t\u00E9", true},
      {"\u00D7", "\u00F7", false},  // the signs between the letters are none
      {"\u0178", "\u00FF", true},
      {"\u0100", "\u0101", true},
      {"\u0101", "\u0102", false},
      {"\u0394", "\u03B4", true},
      {"\u042F", "\u044F", true},
      {"\u0401", "\u0451", true},
      {"\u0531", "\u0561", true},
      {"\u1E02", "\u1E03", true},
      {"\uFF21", "\uFF41", true},
      {"\u00DF", "ss", false},
      {"a\xFF", "A\xFF", true},
      {"a\xFF", "a\xFE", false},
      {"a", "a\u00E9", false},
      {"", "", true},
      {"\U00010400", "\U00010428", true},
  };
  const auto* encoding = apStringEncodingChooser().ut_encoding();
  const apStringCompareInsensitive compare(encoding);
  for (const Case& c : cases) {
    const utString left(c.left);
    const utString right(c.right);
    EXPECT_EQ(left.case_compare(right), c.equal ? 1 : 0) << c.left << " " << c.right;
    EXPECT_EQ(left.lower_case() == right.lower_case(), c.equal) << c.left << " " << c.right;
    EXPECT_EQ(compare.equal(encoding->to_apString(left), encoding->to_apString(right)), c.equal) << c.left;
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
  EXPECT_EQ(apString(L"aaa").replace_all(L"a", L"aa").text(), L"aaaaaa");
  EXPECT_EQ(apString(L"aaa").replace_all(L"aa", L"b").text(), L"ba");
  EXPECT_EQ(apString(L"abc").replace_all(L"", L"x").text(), L"abc");
  EXPECT_EQ(apString(L"xbx").replace_all(L"x", L"").text(), L"b");
  EXPECT_TRUE(apString().replace_all(L"a", L"b").invalid());
}
