#include "stlReader.h"

#include <cstdint>
#include <cstring>

#include "stlBinaryReader.h"
#include "stlFormat.h"
#include "stlTextReader.h"
#include "vltInput.h"
#include "vltScale.h"
#include "vltUp.h"
#include "vltWords.h"

VELABS_INPUT_LIBRARY(stlReader)

namespace {

bool has_size_of_binary(std::string_view bytes) {
  if (bytes.size() < stl_head_size) return false;
  std::uint32_t count = 0;
  std::memcpy(&count, bytes.data() + stl_remark_size, sizeof count);
  return bytes.size() - stl_head_size == std::size_t{count} * stl_record_size;
}

// Text begins with "solid", after optional comments, and has no null bytes but at its end.
bool looks_like_text(std::string_view bytes) {
  constexpr std::size_t looked_at = 4096;
  if (!vlt_same_word(vltWords(bytes).next(), "solid")) return false;
  return vlt_without_padding(bytes).substr(0, looked_at).find('\0') == bytes.npos;
}

}  // namespace

stlReader::stlReader() : vltDescribed(stl_format, "Reads triangles from STL files, binary and ASCII.") {}

velabsResult stlReader::read(const utString& file, const velTableInstance& resources, annDocument& document,
                             velabsOutput& output) {
  const std::optional<double> factor = vlt_input_scale(resources, document, output);
  if (!factor || !vlt_read_up(annUP_Z, resources, document, output)) return velabsFAILED;
  const std::unique_ptr<apMappedFile> mapped = vlt_open(file, output);
  if (!mapped) return velabsFAILED;
  // The header of a binary file may have any bytes, so its exact size is checked first.
  if (!has_size_of_binary(mapped->bytes())) {
    if (!vlt_is_byte_text(mapped->bytes(), output)) return velabsFAILED;
    if (looks_like_text(mapped->bytes())) return stlTextReader(*mapped, resources, document, output).read(*factor);
  }
  return stlBinaryReader(*mapped, resources, document, output).read(*factor);
}
