#include "exaBrepValues.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

#include "vltNames.h"

namespace {

// The size of the kernel's buffers for words.
constexpr std::size_t longest_word = 250;

// Control characters separate words too.
bool is_blank(char c) {
  return static_cast<unsigned char>(c) <= ' ';
}

// "nan" and "inf" are numbers too.
constexpr auto begins_real = [] {
  std::array<bool, 256> result{};
  for (char c : {'0', '1', '2', '3', '4', '5', '6', '7', '8', '9', '-', '+', '.', 'n', 'N', 'i', 'I'}) {
    result[static_cast<unsigned char>(c)] = true;
  }
  return result;
}();

// The number of characters at the start of a word that form an integer; 0 for none.
std::size_t take_integer(std::string_view word, std::int64_t& value) {
  const std::size_t sign = word.size() > 1 && word[0] == '+' && word[1] != '-' ? 1 : 0;
  const auto [end, error] = std::from_chars(word.data() + sign, word.data() + word.size(), value);
  return error == std::errc() ? static_cast<std::size_t>(end - word.data()) : 0;
}

bool is_integer(std::string_view word, std::int64_t& value) {
  return !word.empty() && take_integer(word, value) == word.size();
}

}  // namespace

void exaBrepValues::fail(const std::string& why) {
  if (!ok()) return;
  fault_ = what_;
  if (number_ > 0) fault_ += ' ' + std::to_string(number_);
  fault_ += ", " + place() + ": " + why;
  at_ = bytes_.size();
}

std::string_view exaBrepValues::line() {
  const std::size_t end = std::min(bytes_.find('\n', at_), bytes_.size());
  std::string_view result = bytes_.substr(at_, end - at_);
  at_ = std::min(end + 1, bytes_.size());
  if (result.ends_with('\r')) result.remove_suffix(1);
  return result;
}

std::string_view exaBrepValues::word() {
  const std::string_view bytes = bytes_;
  std::size_t start = at_;
  while (start < bytes.size() && is_blank(bytes[start])) ++start;
  std::size_t end = start;
  while (end < bytes.size() && !is_blank(bytes[end])) ++end;
  at_ = end;
  const std::string_view result = bytes.substr(start, end - start);
  if (result.empty()) fail("the file ends here");
  if (result.size() > longest_word) fail("a word of " + std::to_string(result.size()) + " characters");
  return ok() ? result : std::string_view();
}

std::size_t exaBrepValues::section(std::string_view name, std::size_t least) {
  const std::string_view head = word();
  if (ok() && head != name) fail("\"" + std::string(name) + "\" should stand here, not " + vlt_quoted(head));
  std::int64_t items = 0;
  const std::string_view number = word();
  if (ok() && !is_integer(number, items)) fail(vlt_quoted(number) + " is no number of items");
  end_head();
  if (!ok()) return 0;
  if (items >= 0 && static_cast<std::uint64_t>(items) <= left() / least) return static_cast<std::size_t>(items);
  fail("it cannot hold " + std::to_string(items) + " of them, with " + std::to_string(left()) + " bytes left");
  return 0;
}

std::size_t exaBrepValues::count(const char* what, std::size_t least, std::size_t integers, std::size_t reals) {
  return checked(integer(), what, least, integers, reals);
}

std::size_t exaBrepValues::checked(std::int64_t count, const char* what, std::size_t least, std::size_t integers,
                                   std::size_t reals) {
  if (!ok()) return 0;
  // The blank after the last word of a text file may be missing.
  const std::size_t most = (left() + 1) / room(integers, reals);
  if (count >= static_cast<std::int64_t>(least) && static_cast<std::uint64_t>(count) <= most) {
    return static_cast<std::size_t>(count);
  }
  fail("it cannot have " + std::to_string(count) + " " + what + ", with " + std::to_string(left()) + " bytes left");
  return 0;
}

std::size_t exaBrepValues::reference(const char* what, std::size_t first, std::size_t last) {
  const std::int64_t number = integer();
  if (!ok()) return 0;
  if (number >= static_cast<std::int64_t>(first) && number <= static_cast<std::int64_t>(last)) {
    return static_cast<std::size_t>(number);
  }
  fail("it refers to the " + std::string(what) + " " + std::to_string(number) + " of " + std::to_string(last));
  return 0;
}

std::string exaBrepText::place() const {
  const auto end = bytes_.begin() + static_cast<std::ptrdiff_t>(at_);
  return "line " + std::to_string(1 + std::count(bytes_.begin(), end, '\n'));
}

std::int64_t exaBrepText::integer() {
  const std::string_view text = word();
  std::int64_t value = 0;
  const std::size_t length = take_integer(text, value);
  if (length == 0) fail(vlt_quoted(text) + " is no whole number");
  if (!ok()) return 0;
  // An integer may be followed directly by letters.
  at_ -= text.size() - length;
  return value;
}

int exaBrepText::choice() {
  const std::int64_t value = integer();
  return value >= 0 && value <= 255 ? static_cast<int>(value) : 255;
}

// Most of a file is real numbers, so they are scanned in a separate, faster loop.
void exaBrepText::reals(std::size_t count) {
  const char* at = bytes_.data() + at_;
  const char* const end = bytes_.data() + bytes_.size();
  for (; count > 0; --count) {
    while (at < end && is_blank(*at)) ++at;
    const char* const start = at;
    while (at < end && !is_blank(*at)) ++at;
    const auto length = static_cast<std::size_t>(at - start);
    if (length > 0 && length <= longest_word && begins_real[static_cast<unsigned char>(*start)]) continue;
    at = start;
    break;
  }
  at_ = static_cast<std::size_t>(at - bytes_.data());
  if (count == 0) return;
  const std::string_view text = word();
  fail(vlt_quoted(text) + " is no number");
}

int exaBrepText::shape_kind() {
  constexpr std::array<std::string_view, 8> names{"Co", "CS", "So", "Sh", "Fa", "Wi", "Ed", "Ve"};
  const std::string_view text = word();
  const auto known = std::find(names.begin(), names.end(), text);
  if (known != names.end()) return static_cast<int>(known - names.begin());
  fail(vlt_quoted(text) + " is no kind of shape");
  return -1;
}

int exaBrepText::point_choice() {
  reals(1);
  return choice();
}

// The triangulation is on the line after the face's, which then starts with "2". Any other line is skipped.
std::size_t exaBrepText::face_facets(std::size_t last) {
  line();
  if (at_ >= bytes_.size() || bytes_[at_] != '2') {
    line();
    return 0;
  }
  word();
  return reference("triangulation", 1, last);
}

bool exaBrepText::sub_shape(std::int64_t& number) {
  const std::string_view text = word();
  if (!ok() || text == "*") return false;
  if (text.size() > 1 && std::string_view("+-ie").find(text[0]) != std::string_view::npos &&
      is_integer(text.substr(1), number)) {
    return true;
  }
  fail(vlt_quoted(text) + " is no part of a shape");
  return false;
}

std::string exaBrepBinary::place() const {
  return "byte " + std::to_string(at_);
}

bool exaBrepBinary::needs(std::size_t bytes) {
  if (left() >= bytes) return ok();
  fail("the file ends within it");
  return false;
}

void exaBrepBinary::skip(std::size_t count, std::size_t bytes) {
  if (count > left() / bytes) fail("the file ends within it");
  if (ok()) at_ += count * bytes;
}

int exaBrepBinary::byte() {
  return needs(1) ? static_cast<unsigned char>(bytes_[at_++]) : 0;
}

std::int64_t exaBrepBinary::integer() {
  if (!needs(4)) return 0;
  const auto* const b = reinterpret_cast<const unsigned char*>(bytes_.data() + at_);
  at_ += 4;
  return static_cast<std::int32_t>(b[0] | b[1] << 8 | b[2] << 16 | static_cast<std::uint32_t>(b[3]) << 24);
}

std::int64_t exaBrepBinary::degree() {
  const int low = byte();
  return low | byte() << 8;
}

int exaBrepBinary::shape_kind() {
  constexpr int last = 7;
  const int kind = byte();
  if (kind <= last && ok()) return kind;
  fail(std::to_string(kind) + " is no kind of shape");
  return -1;
}

int exaBrepBinary::point_choice() {
  constexpr std::size_t parameter = sizeof(double);
  const bool parameter_first =
      version_ < 3 && left() > parameter && bytes_[at_ + parameter] >= 1 && bytes_[at_ + parameter] <= 3;
  if (parameter_first) reals(1);
  const int choice = byte();
  if (!parameter_first && choice > 0) reals(1);
  return choice;
}

std::size_t exaBrepBinary::face_facets(std::size_t last) {
  constexpr int with_facets = 2;
  return byte() == with_facets ? reference("triangulation", 1, last) : 0;
}

bool exaBrepBinary::sub_shape(std::int64_t& number) {
  constexpr int last_orientation = 3;
  const int orientation = byte();
  if (!ok() || orientation == '*') return false;
  if (orientation > last_orientation) fail(std::to_string(orientation) + " is no orientation");
  number = integer();
  return ok();
}
