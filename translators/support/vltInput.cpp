#include "vltInput.h"

#include <string>

std::unique_ptr<apMappedFile> vlt_open(const utString& file, velabsOutput& output) {
  apStatus status;
  std::unique_ptr<apMappedFile> mapped = apMappedFile::open(file, status);
  if (!mapped) {
    output.message(velabsERROR, status.failure());
  } else if (mapped->bytes().empty()) {
    output.message(velabsERROR, "the file is empty");
    mapped = nullptr;
  }
  return mapped;
}

bool vlt_is_byte_text(std::string_view text, velabsOutput& output) {
  if (!text.starts_with("\xFE\xFF") && !text.starts_with("\xFF\xFE")) return true;
  output.message(velabsERROR, "the text is encoded in UTF-16; save it as UTF-8");
  return false;
}

bool vlt_fail_at_line(velabsOutput& output, std::size_t line, std::string_view reason) {
  output.message(velabsERROR, utString("line " + std::to_string(line) + ": " + std::string(reason)));
  return false;
}
