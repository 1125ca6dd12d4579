#include "stepText.h"

#include <TCollection_HAsciiString.hxx>
#include <algorithm>

#include "vltUtf8.h"

namespace {

constexpr std::size_t longest_character = 4;
constexpr char32_t unknown = 0xFFFD;

bool is_ascii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

void append_code(std::string& text, char32_t code, int digits) {
  constexpr char of_digit[] = "0123456789ABCDEF";
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) text += of_digit[code >> shift & 15];
}

// A run of characters with codes of either four or eight hexadecimal digits.
class Spelling {
 public:
  explicit Spelling(std::string& text) : text_(text) {}

  void add(char32_t code) {
    const int digits = code > 0xFFFF ? 8 : 4;
    if (digits != digits_) {
      end();
      text_ += digits == 4 ? "\\X2\\" : "\\X4\\";
      digits_ = digits;
    }
    append_code(text_, code, digits);
  }
  void end() {
    if (digits_ > 0) text_ += "\\X0\\";
    digits_ = 0;
  }

 private:
  std::string& text_;
  int digits_ = 0;
};

// True when these bytes could be the start of a longer character.
bool is_unfinished(std::string_view text) {
  if (text.size() >= longest_character || static_cast<unsigned char>(text.front()) < 0xC0) return false;
  for (char c : text.substr(1)) {
    if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) return false;
  }
  return true;
}

// Encodes the non-ASCII characters of a line. An incomplete character at the end is kept in `rest` for the next line.
std::string spelled(std::string_view line, std::string& rest) {
  std::string joined = std::move(rest);
  rest.clear();
  joined += line;
  std::string result;
  Spelling spelling(result);
  for (std::string_view text = joined; !text.empty();) {
    const std::size_t size = vlt_utf8_size(text);
    if (size == 0 && is_unfinished(text)) {
      rest = text;
      break;
    }
    if (size == 1) {
      spelling.end();
      result += text.front();
    } else {
      spelling.add(size == 0 ? unknown : vlt_utf8_code(text, size));
    }
    text.remove_prefix(size == 0 ? 1 : size);
  }
  spelling.end();
  return result;
}

}  // namespace

std::optional<std::string> step_repaired(std::string_view bytes) {
  if (vlt_is_utf8(bytes)) return std::nullopt;
  return vlt_utf8_or_latin1(bytes);
}

bool step_print(const StepData_StepWriter& written, velabsOfStream& stream, velabsOutput& output) {
  constexpr int lines_between_signs = 4096;
  std::string rest;
  for (int i = 1; i <= written.NbLines() && stream.good(); ++i) {
    if (i % lines_between_signs == 0) {
      if (output.cancelled()) return false;
      output.progress(80 + static_cast<int>(20.0 * i / written.NbLines()));
    }
    const Handle(TCollection_HAsciiString) handle = written.Line(i);
    const std::string_view line(handle->ToCString(), static_cast<std::size_t>(handle->Length()));
    const bool plain = rest.empty() && std::all_of(line.begin(), line.end(), is_ascii);
    stream.write(plain ? line : spelled(line, rest));
    stream.write("\n");
  }
  return true;
}
