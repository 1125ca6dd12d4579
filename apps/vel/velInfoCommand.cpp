#include "velInfoCommand.h"

#include "annDefinitions.h"
#include "apNumberText.h"
#include "velDriver.h"
#include "velInputCheck.h"
#include "velInterrupt.h"
#include "velJson.h"
#include "velMessages.h"
#include "velOptionCheck.h"
#include "velText.h"
#include "velUnits.h"
#include "vluFileTypeFinder.h"
#include "vluFileTypeInfo.h"

namespace {

struct Info {
  std::string file;
  std::string file_type;
  std::string translator;
  std::string library;  // full path
  std::string library_name;
  std::string unit;       // of the bounding box; empty for a file that has none
  std::string unit_text;  // the same for people
  annStatistics statistics;
  std::size_t products = 0;     // distinct parts and assemblies
  std::size_t occurrences = 0;  // of them in assemblies
  annStatistics definitions;    // each part once
};

// The parts of a document, each once however often it stands in it.
std::vector<annPlacedBody> distinct_parts(const annDefinitions& definitions) {
  std::vector<annPlacedBody> parts;
  for (const annDefinitions::Definition& definition : definitions.definitions()) {
    if (!definition.node->body.empty()) parts.push_back({definition.node, {}, {}});
  }
  return parts;
}

std::string text_of(const annVector& point) {
  std::string text;
  for (const double coordinate : {point.x, point.y, point.z}) {
    char number[ap_number_room];
    if (!text.empty()) text += ' ';
    text.append(number, ap_write_number(number, coordinate));
  }
  return text;
}

velJson json_of(const annVector& point) {
  return {point.x, point.y, point.z};
}

void print_json(const Info& info, velConsole& console) {
  const annStatistics& counts = info.statistics;
  velJson box = nullptr;
  if (counts.box) box = {{"min", json_of(counts.box->min)}, {"max", json_of(counts.box->max)}};
  vel_print_json(console, {{"file", info.file},
                           {"file_type", info.file_type},
                           {"translator", info.translator},
                           {"library", info.library},
                           {"unit", info.unit.empty() ? velJson(nullptr) : velJson(info.unit)},
                           {"parts", counts.parts},
                           {"solids", counts.solids},
                           {"faces", counts.faces},
                           {"triangles", counts.triangles},
                           {"vertices", counts.vertices},
                           {"bounding_box", box},
                           {"occurrences", info.occurrences},
                           {"definitions",
                            {{"products", info.products},
                             {"parts", info.definitions.parts},
                             {"solids", info.definitions.solids},
                             {"faces", info.definitions.faces},
                             {"triangles", info.definitions.triangles},
                             {"vertices", info.definitions.vertices}}}});
}

void print_table(const Info& info, velConsole& console) {
  const annStatistics& counts = info.statistics;
  console.print(vel_columns({{"file", info.file},
                             {"file type", info.file_type},
                             {"translator", info.translator + " (" + info.library_name + ")"},
                             {"unit", info.unit_text},
                             {"parts", std::to_string(counts.parts)},
                             {"solids", std::to_string(counts.solids)},
                             {"faces", std::to_string(counts.faces)},
                             {"triangles", std::to_string(counts.triangles)},
                             {"vertices", std::to_string(counts.vertices)},
                             {"smallest x y z", counts.box ? text_of(counts.box->min) : "none"},
                             {"largest x y z", counts.box ? text_of(counts.box->max) : "none"}}));
}

void convert(annVector& point, velLengthUnit from, velLengthUnit to, const unitsService& units) {
  for (double* coordinate : {&point.x, &point.y, &point.z}) *coordinate = units.convert_length(*coordinate, from, to);
}

// Shows lengths in another unit; where that is not possible, says why and leaves them as they are.
void convert(Info& info, velLengthUnit from, velLengthUnit to, velInstallation& installation, velConsole& console) {
  velUnits library(installation);
  const unitsService* units = library.service();
  if (!units) {
    console.warning(library.complaint(vel_text(velMSG_UNIT_OF_FILE_SHOWN, {info.unit_text})));
    return;
  }
  if (from == velLENGTH_UNSPECIFIED) {
    from = velLENGTH_MILLIMETRE;
    console.note(vel_text(velMSG_FILE_WITHOUT_UNIT, {info.file}));
  }
  info.unit = units->length_name(to);
  info.unit_text = vel_text(velMSG_UNIT_CONVERTED, {info.unit, units->length_name(from)});
  if (!info.statistics.box) return;
  convert(info.statistics.box->min, from, to, *units);
  convert(info.statistics.box->max, from, to, *units);
}

}  // namespace

velExitCode vel_info(const velInfoRequest& request, velConsole& console) {
  if (const velExitCode code = vel_check_input_files({request.file}, console)) return code;
  velInstallation installation(console);
  if (!installation.found()) return velEXIT_FAILED;
  velDriver driver(installation, console);
  driver.load();
  std::vector<const vlnTranslatorInfo*> readers;
  if (const velExitCode code = vel_choose_readers({request.file}, request.from, driver, readers, console)) return code;
  const vlnTranslatorInfo& reader = *readers.front();
  vlnTranslator::Resources none;
  vel_check_options(driver, readers, "--in", none, console);

  const bool done = driver.read(request.file, reader);
  console.end_progress();
  if (!done && vel_interrupted()) {
    console.error(vel_text(velMSG_CANCELLED, {request.file}));
    return velEXIT_FAILED;
  }
  if (!done) {
    vel_tell_errors(vel_explained(driver.errors(), {request.file}, readers), request.file, "", console);
    return velEXIT_BAD_INPUT;
  }

  const bool has_unit = driver.document().unit != velLENGTH_UNSPECIFIED;
  const std::string unit = has_unit ? co_value_to_text(driver.document().unit).str() : "";
  Info info{request.file,
            vluFileTypeInfo::name(vluFileTypeFinder::find_file_type(request.file)).str(),
            reader.format_name().ut_string().str(),
            reader.file_ut().str(),
            reader.file_name_ut().str(),
            unit,
            has_unit ? unit : vel_text(velMSG_NO_UNIT),
            ann_statistics(driver.document()),
            0,
            0,
            {}};
  const annDefinitions definitions(driver.document());
  info.products = definitions.definitions().size();
  info.occurrences = definitions.occurrences();
  info.definitions = ann_statistics(distinct_parts(definitions), false);
  if (request.unit) convert(info, driver.document().unit, *request.unit, installation, console);
  request.json ? print_json(info, console) : print_table(info, console);
  return velEXIT_DONE;
}
