#include "velResourceFile.h"

#include <string_view>
#include <utility>

#include "apMappedFile.h"

namespace {

std::string_view between_blanks(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\v\f";
  const std::size_t start = text.find_first_not_of(blanks);
  if (start == text.npos) return {};
  return text.substr(start, text.find_last_not_of(blanks) - start + 1);
}

// Why a line is not `KEY = value`; null if it is.
const char* reason_against(std::string_view line, std::size_t equals) {
  if (line.find('\0') != line.npos) return "it holds a null byte";
  if (equals == line.npos) return "there is no \"=\" in it";
  const std::string_view key = between_blanks(line.substr(0, equals));
  if (key.empty()) return "there is no key before the \"=\"";
  if (key.find_first_of(" \t") != key.npos) return "the key holds a blank";
  return nullptr;
}

}  // namespace

velResourceFile velResourceFile::read(const utString& path, apStatus& status) {
  velResourceFile result;
  const auto file = apMappedFile::open(path, status);
  if (!file) return result;

  std::string_view rest = file->bytes();
  if (rest.starts_with("\xEF\xBB\xBF")) rest.remove_prefix(3);
  utString description;
  for (int number = 1; !rest.empty(); ++number) {
    const std::size_t end = rest.find('\n');
    const std::string_view line = between_blanks(rest.substr(0, end));
    rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);

    if (line.starts_with('#')) {
      if (!description.empty()) description += " ";
      description += between_blanks(line.substr(1));
      continue;
    }
    const utString above = std::exchange(description, utString());
    if (line.empty()) continue;
    const std::size_t equals = line.find('=');
    if (const char* reason = reason_against(line, equals)) {
      result.problems_.push_back({number, reason});
      continue;
    }
    result.entries_.push_back({number, utString(between_blanks(line.substr(0, equals))),
                               utString(between_blanks(line.substr(equals + 1))), above});
  }
  return result;
}
