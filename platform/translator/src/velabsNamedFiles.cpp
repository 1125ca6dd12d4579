#include "velabsNamedFiles.h"

#include <string.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>

#include "apRegularFile.h"

namespace {

constexpr std::size_t piece_size = std::size_t{1} << 20;
// Longer than the longest file name with every character written as six.
constexpr std::size_t overlap = 4096;

// A part of a file. A name that is cut by a border of the piece is complete in the neighbouring piece.
struct Piece {
  std::string_view text;
  bool is_first;
  bool is_last;
};

bool is_of_name(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '-' || (c & 0x80) != 0;
}

std::size_t find(std::string_view text, const std::string& what, std::size_t from) {
  const void* found = memmem(text.data() + from, text.size() - from, what.data(), what.size());
  return found ? static_cast<std::size_t>(static_cast<const char*>(found) - text.data()) : text.npos;
}

// Removes "_12" from the end and returns the number; 0 if the text does not end in a number in this form.
unsigned take_number(std::string_view& text) {
  const std::size_t mark = text.find_last_not_of("0123456789");
  if (mark == text.npos || text[mark] != '_' || mark + 1 == text.size() || text[mark + 1] == '0') return 0;
  unsigned number = 0;
  if (std::from_chars(text.data() + mark + 1, text.data() + text.size(), number).ec != std::errc()) return 0;
  text.remove_suffix(text.size() - mark);
  return number;
}

void collect(const Piece& piece, const velabsNumberedNames& names, std::set<unsigned>& numbers) {
  const std::string_view text = piece.text;
  for (std::size_t at = find(text, names.ending, 0); at != text.npos; at = find(text, names.ending, at + 1)) {
    const std::size_t end = at + names.ending.size();
    if (end == text.size() ? !piece.is_last : is_of_name(text[end])) continue;
    std::string_view before = text.substr(std::max(at, overlap) - overlap, std::min(at, overlap));
    const unsigned number = before.ends_with(names.stem) ? 0 : take_number(before);
    if (!before.ends_with(names.stem)) continue;
    before.remove_suffix(names.stem.size());
    const bool whole = before.empty() ? piece.is_first : !is_of_name(before.back()) && before.back() != '.';
    if (whole) numbers.insert(number);
  }
}

std::optional<unsigned> number_of_digits(std::string_view digits, std::size_t count) {
  unsigned number = 0;
  if (digits.size() < count) return std::nullopt;
  const char* const end = digits.data() + count;
  const auto [stop, error] = std::from_chars(digits.data(), end, number, 16);
  return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

void append_utf8(std::string& to, unsigned character) {
  if (character < 0x80) {
    to += static_cast<char>(character);
  } else if (character < 0x800) {
    to += static_cast<char>(0xc0 | character >> 6);
    to += static_cast<char>(0x80 | (character & 0x3f));
  } else {
    to += static_cast<char>(0xe0 | character >> 12);
    to += static_cast<char>(0x80 | (character >> 6 & 0x3f));
    to += static_cast<char>(0x80 | (character & 0x3f));
  }
}

// The text with its character codes replaced by the characters.
std::string decoded(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const std::size_t plain = std::min(text.find_first_of("%\\"), text.size());
    result += text.substr(0, plain);
    text.remove_prefix(plain);
    if (text.empty()) break;
    const bool percent = text.front() == '%';
    const std::size_t lead = percent ? 1 : 2, digits = percent ? 2 : 4;
    std::optional<unsigned> code;
    if (percent || text.starts_with("\\u")) code = number_of_digits(text.substr(lead), digits);
    if (code && percent) {
      result += static_cast<char>(*code);
    } else if (code) {
      append_utf8(result, *code);
    } else {
      result += text.front();
    }
    text.remove_prefix(code ? lead + digits : 1);
  }
  return result;
}

bool holds_codes(std::string_view text) {
  return text.find('%') != text.npos || text.find("\\u") != text.npos;
}

}  // namespace

std::set<unsigned> velabs_named_in(const utString& file, const velabsNumberedNames& names) {
  std::set<unsigned> numbers;
  apStatus status;
  const apRegularFile opened(file, status);
  if (!opened.good()) return numbers;
  std::string buffer(piece_size + overlap, '\0');
  for (std::uint64_t at = 0;; at += piece_size) {
    const std::size_t size = opened.read_at(at, buffer.data(), buffer.size(), status);
    const Piece piece{std::string_view(buffer).substr(0, size), at == 0, size < buffer.size()};
    collect(piece, names, numbers);
    if (holds_codes(piece.text)) {
      const std::string plain = decoded(piece.text);
      collect({plain, piece.is_first, piece.is_last}, names, numbers);
    }
    if (piece.is_last) return numbers;
  }
}
