#include "velInfoCommand.h"

#include "annDefinitions.h"
#include "annPrecision.h"
#include "apNumberText.h"
#include "velCounts.h"
#include "velDriver.h"
#include "velInputCheck.h"
#include "velInterrupt.h"
#include "velJson.h"
#include "velMessages.h"
#include "velOptionCheck.h"
#include "velText.h"
#include "velTranslation.h"
#include "velUnits.h"
#include "vluFileTypeFinder.h"
#include "vluFileTypeInfo.h"

namespace {

// Facts about the model.
struct Model {
  velCounts counts;
  std::optional<annBox> box;
  double step = 0;              // resolution of the coordinates of the box
  std::size_t products = 0;     // distinct parts and assemblies
  std::size_t occurrences = 0;  // their instances in assemblies
  velCounts definitions;        // each part once
};

// Unknown texts are empty.
struct Info {
  std::string file;
  std::string file_type;
  std::string translator;
  std::string library;  // full path
  std::string library_name;
  std::string unit;       // of the bounding box
  std::string unit_text;  // human-readable
  std::optional<Model> model;
};

// The parts of a document, each once, however many instances it has.
std::vector<annPlacedBody> distinct_parts(const annDefinitions& definitions) {
  std::vector<annPlacedBody> parts;
  for (const annDefinitions::Definition& definition : definitions.definitions()) {
    if (!definition.node->body.empty()) parts.push_back({definition.node, {}, {}});
  }
  return parts;
}

std::string text_of(const std::optional<annBox>& box, annVector annBox::*corner) {
  if (!box) return "none";
  std::string text;
  for (const double coordinate : {((*box).*corner).x, ((*box).*corner).y, ((*box).*corner).z}) {
    char number[ap_number_room];
    if (!text.empty()) text += ' ';
    text.append(number, ap_write_number(number, coordinate));
  }
  return text;
}

std::string text_of(const std::optional<std::size_t>& count) {
  return count ? std::to_string(*count) : "not counted";
}

velJson json_of(const annVector& point) {
  return {point.x, point.y, point.z};
}

velJson json_of(const std::string& text) {
  return text.empty() ? velJson(nullptr) : velJson(text);
}

void print_json(const Info& info, velConsole& console) {
  velJson object{{"file", info.file},
                 {"file_type", json_of(info.file_type)},
                 {"translator", json_of(info.translator)},
                 {"library", json_of(info.library)},
                 {"unit", json_of(info.unit)}};
  for (const char* key :
       {"parts", "solids", "faces", "triangles", "vertices", "bounding_box", "occurrences", "definitions"}) {
    object[key] = nullptr;
  }
  if (const auto& model = info.model) {
    object.update(vel_counts_as_json(model->counts));
    if (model->box) object["bounding_box"] = {{"min", json_of(model->box->min)}, {"max", json_of(model->box->max)}};
    object["occurrences"] = model->occurrences;
    object["definitions"] = {{"products", model->products}};
    object["definitions"].update(vel_counts_as_json(model->definitions));
  }
  object["done"] = info.model.has_value();
  object["messages"] = vel_messages_as_json(console);
  vel_print_json(console, object);
}

void print_table(const Info& info, velConsole& console) {
  const velCounts& counts = info.model->counts;
  console.print(vel_columns({{"file", info.file},
                             {"file type", info.file_type.empty() ? "unknown" : info.file_type},
                             {"translator", info.translator + " (" + info.library_name + ")"},
                             {"unit", info.unit_text},
                             {"parts", std::to_string(counts.parts)},
                             {"solids", std::to_string(counts.solids)},
                             {"faces", std::to_string(counts.faces)},
                             {"triangles", text_of(counts.triangles)},
                             {"vertices", text_of(counts.vertices)},
                             {"smallest x y z", text_of(info.model->box, &annBox::min)},
                             {"largest x y z", text_of(info.model->box, &annBox::max)}}));
}

template <typename Change>
void change(std::optional<annBox>& box, Change change) {
  if (!box) return;
  for (annVector* corner : {&box->min, &box->max}) {
    for (double* coordinate : {&corner->x, &corner->y, &corner->z}) *coordinate = change(*coordinate);
  }
}

// Converts lengths to another unit. When that is not possible, warns with the reason and keeps them unchanged.
void convert(Info& info, velLengthUnit from, velLengthUnit to, velInstallation& installation, velConsole& console) {
  const bool has_unit = from != velLENGTH_UNSPECIFIED;
  if (!has_unit) from = velLENGTH_MILLIMETRE;
  velUnits library(installation);
  const unitsService* units = library.service();
  if (!units) {
    console.warning(library.complaint(vel_text(velMSG_UNIT_OF_FILE_SHOWN, {vel_length_name(from)})));
    return;
  }
  if (!has_unit) console.note(vel_text(velMSG_FILE_WITHOUT_UNIT, {info.file}));
  info.unit = units->length_name(to);
  info.unit_text = vel_text(velMSG_UNIT_CONVERTED, {info.unit, units->length_name(from)});
  const auto converted = [&](double length) { return units->convert_length(length, from, to); };
  change(info.model->box, converted);
  info.model->step = converted(info.model->step);
}

Model model_of(const annDocument& document) {
  const std::vector<annPlacedBody> parts = ann_placed_bodies(document);
  const annStatistics statistics = ann_statistics(parts, true);
  const annDefinitions definitions(document);
  Model model{vel_counts(parts, statistics),
              statistics.box,
              0,
              definitions.definitions().size(),
              definitions.occurrences(),
              vel_counts(distinct_parts(definitions))};
  if (model.box) model.step = ann_coordinate_step(document, *model.box);
  return model;
}

velExitCode look_into(const velInfoRequest& request, Info& info, velConsole& console) {
  if (const velExitCode code = vel_check_input_files({request.file}, console)) return code;
  velInstallation installation(console);
  if (!installation.found()) return velEXIT_FAILED;
  velDriver driver(installation, console);
  driver.load();
  const vluFileType type = vluFileTypeFinder::find_file_type(request.file);
  if (type != vluUNKNOWN) info.file_type = vluFileTypeInfo::name(type).str();
  std::vector<const vlnTranslatorInfo*> readers;
  if (const velExitCode code = vel_choose_readers({request.file}, request.from, driver, readers, console)) return code;
  const vlnTranslatorInfo& reader = *readers.front();
  info.translator = reader.format_name().ut_string().str();
  info.library = reader.file_ut().str();
  info.library_name = reader.file_name_ut().str();
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

  const velLengthUnit unit = driver.document().unit;
  if (unit != velLENGTH_UNSPECIFIED) info.unit = co_value_to_text(unit).str();
  info.unit_text = info.unit.empty() ? vel_text(velMSG_NO_UNIT) : info.unit;
  info.model = model_of(driver.document());
  if (request.unit) convert(info, unit, *request.unit, installation, console);
  change(info.model->box, [&](double length) { return ann_rounded(length, info.model->step); });
  return velEXIT_DONE;
}

}  // namespace

velExitCode vel_info(const velInfoRequest& request, velConsole& console) {
  Info info;
  info.file = request.file;
  const velExitCode code = look_into(request, info, console);
  if (request.json) {
    print_json(info, console);
  } else if (info.model) {
    print_table(info, console);
  }
  return code;
}
