#include "threemfWriter.h"

#include "threemfFormat.h"
#include "threemfObjects.h"
#include "threemfPackage.h"
#include "threemfUnits.h"
#include "vltFlag.h"
#include "vltLosses.h"
#include "vltScale.h"
#include "vltTextOutput.h"
#include "vltUp.h"

VELABS_OUTPUT_LIBRARY(threemfWriter)

namespace {

velLengthUnit written_unit(const annDocument& document, const velTableInstance& resources, velabsOutput& output) {
  const velLengthUnit wanted = vlt_stated_unit(resources, document);
  const velLengthUnit unit = threemf_written_unit(wanted);
  if (unit != wanted && wanted != velLENGTH_UNSPECIFIED) {
    output.message(velabsNOTE, utString("3MF does not know the unit ") + co_value_to_text(wanted) +
                                   ": lengths are written in " + co_value_to_text(unit));
  }
  return unit;
}

std::string counted(std::size_t count, const char* what) {
  return std::to_string(count) + " " + what + (count == 1 ? " is" : "s are");
}

void tell_left_out(const threemfObjects& objects, velabsOutput& output) {
  if (objects.empty_count() > 0) {
    output.message(velabsNOTE, utString("3MF holds nothing without faces: " + counted(objects.empty_count(), "node") +
                                        " left out"));
  }
  if (objects.flattened_count() > 0) {
    output.message(
        velabsWARNING,
        utString("3MF holds no placement that flattens: " + counted(objects.flattened_count(), "node") + " left out"));
  }
}

}  // namespace

threemfWriter::threemfWriter(velabsOfStream* stream)
    : vltDescribed(threemf_format, "Writes triangle meshes, their arrangement and colours to 3MF files."),
      stream_(*stream) {}

velabsResult threemfWriter::write(const annDocument& document, const velTableInstance& resources,
                                  velabsOutput& output) {
  const std::optional<int> digits = vlt_digits(resources, output);
  if (!digits) return velabsFAILED;
  const auto bodies = vlt_placed_meshes(document, resources, {}, output);
  if (!bodies) return velabsFAILED;
  const velLengthUnit unit = written_unit(document, resources, output);
  const std::optional<double> factor = vlt_output_scale_to(unit, resources, document, output);
  if (!factor) return velabsFAILED;
  const std::optional<annTransform> turn = vlt_written_turn(annUP_Z, resources, document, output);
  if (!turn) return velabsFAILED;

  threemfColours colours(vlt_flag(resources, "WRITE_MATERIALS"), vlt_flag(resources, "WRITE_VERTEX_COLOURS"));
  const threemfObjects objects(document, *turn, *bodies, colours);
  if (objects.items().empty()) {
    output.message(velabsWARNING, "the model has no faces that 3MF could hold: nothing will be built from the file");
  }
  const vltCarries carries{
      .format = "3MF", .parts = true, .tree = true, .colours = true, .material_names = true, .vertex_colours = true};
  vlt_tell_losses(document, *bodies, carries, resources, output);
  tell_left_out(objects, output);
  if (colours.hides_materials()) {
    output.message(velabsNOTE,
                   "3MF holds one look for a face: where its vertices have other colours than its material, the "
                   "material is left out");
  }
  threemfModelText text(objects, colours, {threemf_unit_text(unit), *factor, *digits});
  const velabsResult result = threemf_write_package(text, stream_, output);
  if (text.replaced_characters()) {
    output.message(velabsWARNING, "names with characters that XML cannot hold have marks in their place");
  }
  return result;
}
