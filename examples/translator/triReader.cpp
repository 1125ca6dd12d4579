#include "triReader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <string>
#include <string_view>

#include "annWelder.h"
#include "apMappedFile.h"
#include "apNumberText.h"
#include "vluFileType.h"

VELABS_INPUT_LIBRARY(triReader)

namespace {

constexpr std::size_t lines_between_reports = std::size_t{1} << 14;

void skip_blanks(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\r"), text.size()));
}

std::string_view take_line(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(line.size() + 1, text.size()));
  return line;
}

// False unless the line holds nine finite numbers and nothing else.
bool read_numbers(std::string_view line, std::array<double, 9>& numbers) {
  for (double& number : numbers) {
    skip_blanks(line);
    if (!ap_take_double(line, number) || !std::isfinite(number)) return false;
  }
  skip_blanks(line);
  return line.empty();
}

velabsResult read_triangles(std::string_view text, annMesh& mesh, velabsOutput& output) {
  annWelder welder(mesh.vertices->points);
  std::string_view rest = text;
  for (std::size_t number = 1; !rest.empty(); ++number) {
    std::string_view line = take_line(rest);
    skip_blanks(line);
    if (line.empty() || line.starts_with('#')) continue;
    std::array<double, 9> c;
    if (!read_numbers(line, c)) {
      output.message(velabsERROR, "line " + std::to_string(number) + ": nine numbers are expected");
      return velabsFAILED;
    }
    mesh.add_face(std::array{welder.number_of({c[0], c[1], c[2]}), welder.number_of({c[3], c[4], c[5]}),
                             welder.number_of({c[6], c[7], c[8]})});
    if (number % lines_between_reports != 0) continue;
    const std::size_t done = text.size() - rest.size();
    output.progress(static_cast<int>(100.0 * static_cast<double>(done) / static_cast<double>(text.size())));
    if (output.cancelled()) return velabsCANCELLED;
  }
  return velabsDONE;
}

}  // namespace

void triReader::file_types(intcoSet& types) const {
  // Such a file has no magic number, so this reader handles all files of unknown type.
  types.add(vluUNKNOWN);
}

velabsResult triReader::read(const utString& file, const velTableInstance& resources, annDocument& document,
                             velabsOutput& output) {
  const double scale = resources.value<double>("SCALE", 1);
  if (!(scale > 0) || !std::isfinite(scale)) {
    output.message(velabsERROR, "SCALE must be a number greater than 0");
    return velabsFAILED;
  }
  apStatus status;
  const std::unique_ptr<apMappedFile> mapped = apMappedFile::open(file, status);
  if (!mapped) {
    output.message(velabsERROR, status.failure());
    return velabsFAILED;
  }

  auto mesh = std::make_shared<annMesh>();
  if (const velabsResult result = read_triangles(mapped->bytes(), *mesh, output); result != velabsDONE) return result;

  document.unit = resources.value<velLengthUnit>("LENGTH_UNIT", velLENGTH_UNSPECIFIED);
  annNode& part = document.root.add_child("");  // gets the name of the file
  part.transform = annTransform::scaling(scale);
  part.body.mesh = std::move(mesh);
  return velabsDONE;
}
