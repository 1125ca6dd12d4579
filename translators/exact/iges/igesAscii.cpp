#include "igesAscii.h"

#include <array>

#include "vltUtf8.h"

namespace {

// From U+00A0 on: Latin-1 Supplement and Latin Extended-A.
constexpr char32_t first_letter = 0xA0;
constexpr std::array<const char*, 0xE0> letters{
    " ", "!",  "c",  "GBP", "?", "JPY", "|",  "?", "\"", "(C)", "a", "<<", "-",   "-",   "(R)", "-",   // A0
    "?", "+-", "2",  "3",   "'", "u",   "?",  ".", ",",  "1",   "o", ">>", "1/4", "1/2", "3/4", "?",   // B0
    "A", "A",  "A",  "A",   "A", "A",   "AE", "C", "E",  "E",   "E", "E",  "I",   "I",   "I",   "I",   // C0
    "D", "N",  "O",  "O",   "O", "O",   "O",  "x", "O",  "U",   "U", "U",  "U",   "Y",   "Th",  "ss",  // D0
    "a", "a",  "a",  "a",   "a", "a",   "ae", "c", "e",  "e",   "e", "e",  "i",   "i",   "i",   "i",   // E0
    "d", "n",  "o",  "o",   "o", "o",   "o",  "/", "o",  "u",   "u", "u",  "u",   "y",   "th",  "y",   // F0
    "A", "a",  "A",  "a",   "A", "a",   "C",  "c", "C",  "c",   "C", "c",  "C",   "c",   "D",   "d",   // 100
    "D", "d",  "E",  "e",   "E", "e",   "E",  "e", "E",  "e",   "E", "e",  "G",   "g",   "G",   "g",   // 110
    "G", "g",  "G",  "g",   "H", "h",   "H",  "h", "I",  "i",   "I", "i",  "I",   "i",   "I",   "i",   // 120
    "I", "i",  "IJ", "ij",  "J", "j",   "K",  "k", "k",  "L",   "l", "L",  "l",   "L",   "l",   "L",   // 130
    "l", "L",  "l",  "N",   "n", "N",   "n",  "N", "n",  "'n",  "N", "n",  "O",   "o",   "O",   "o",   // 140
    "O", "o",  "OE", "oe",  "R", "r",   "R",  "r", "R",  "r",   "S", "s",  "S",   "s",   "S",   "s",   // 150
    "S", "s",  "T",  "t",   "T", "t",   "T",  "t", "U",  "u",   "U", "u",  "U",   "u",   "U",   "u",   // 160
    "U", "u",  "U",  "u",   "W", "w",   "Y",  "y", "Y",  "Z",   "z", "Z",  "z",   "Z",   "z",   "s"};  // 170

const char* plain(char32_t code) {
  if (code >= first_letter && code < first_letter + letters.size()) return letters[code - first_letter];
  if (code >= 0x2010 && code <= 0x2015) return "-";
  if (code == 0x2018 || code == 0x2019) return "'";
  if (code == 0x201C || code == 0x201D) return "\"";
  if (code == 0x2026) return "...";
  if (code == 0x20AC) return "EUR";
  return "?";
}

// A letter may be followed by combining accents.
bool is_accent(char32_t code) {
  return code >= 0x300 && code < 0x370;
}

}  // namespace

std::string iges_ascii(std::string_view name, bool& changed) {
  std::string result;
  for (std::string_view rest = name; !rest.empty();) {
    const std::size_t size = vlt_utf8_size(rest);
    const char32_t code = size == 0 ? 0 : vlt_utf8_code(rest, size);
    if (size == 1 && code >= 0x20 && code < 0x7F) {
      result += rest.front();
    } else if (!is_accent(code)) {
      result += plain(code);
    }
    rest.remove_prefix(size == 0 ? 1 : size);
  }
  changed = changed || result != name;
  return result;
}
