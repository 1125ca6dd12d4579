#include "threemfWriter.h"

#include <algorithm>
#include <unordered_set>

#include "annOpenEdges.h"
#include "threemfFormat.h"
#include "threemfJoinedMesh.h"
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
    output.message(
        velabsNOTE,
        utString("3MF holds nothing without triangles: " + counted(objects.empty_count(), "node") + " left out"));
  }
  if (objects.flattened_count() > 0) {
    output.message(
        velabsWARNING,
        utString("3MF holds no placement that flattens: " + counted(objects.flattened_count(), "node") + " left out"));
  }
}

void tell_collapsed(const threemfJoinedMeshes& joined, velabsOutput& output) {
  if (joined.collapsed_count() == 0) return;
  output.message(velabsNOTE, utString("3MF holds no triangle with equal corners: " +
                                      counted(joined.collapsed_count(), "triangle") + " left out"));
}

// Slicers treat every object as a solid, so open edges are reported.
void tell_open_edges(const std::vector<vltPlacedMesh>& bodies, const threemfJoinedMeshes& joined,
                     velabsOutput& output) {
  std::unordered_set<const annMesh*> seen;
  std::size_t open_parts = 0, open_edges = 0;
  for (const vltPlacedMesh& body : bodies) {
    if (!seen.insert(body.mesh.get()).second) continue;
    const std::size_t edges = ann_open_edges(joined.of(*body.mesh).mesh);
    open_parts += edges > 0;
    open_edges += edges;
  }
  if (open_parts == 0) return;
  output.message(velabsNOTE, utString(std::to_string(open_parts) + " of " + std::to_string(seen.size()) +
                                      (seen.size() == 1 ? " mesh is" : " meshes are") + " not closed, with " +
                                      std::to_string(open_edges) + (open_edges == 1 ? " open edge" : " open edges") +
                                      " in all: slicers expect solids and may repair or refuse " +
                                      (open_parts == 1 ? "it" : "them")));
}

const char* reason_for_no_objects(const threemfObjects& objects, const threemfJoinedMeshes& joined,
                                  double join_tolerance) {
  if (objects.flattened_count() > 0) return "all placements of the model flatten it, which 3MF does not allow";
  if (join_tolerance > 0 && joined.collapsed_count() > 0) {
    return "the option join-tolerance joins the corners of all triangles; give it a smaller value";
  }
  return "all triangles of the model have equal corners, which 3MF does not allow";
}

velabsResult fail_overflow(velabsOutput& output) {
  output.message(velabsERROR, "a coordinate is too large for a number once it is scaled");
  return velabsFAILED;
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
  if (!bodies || !vlt_has_faces(*bodies, "3MF", output)) return velabsFAILED;
  const velLengthUnit unit = written_unit(document, resources, output);
  const std::optional<double> factor = vlt_output_scale_to(unit, resources, document, output);
  if (!factor) return velabsFAILED;
  const std::optional<annTransform> turn = vlt_written_turn(annUP_Z, resources, document, output);
  if (!turn) return velabsFAILED;

  const double join_tolerance = std::max(resources.value<double>("JOIN_TOLERANCE", 0), 0.0);
  const threemfJoinedMeshes joined(*bodies, {*factor, *digits, join_tolerance});
  if (joined.overflow()) return fail_overflow(output);
  threemfColours colours(vlt_flag(resources, "WRITE_MATERIALS"), vlt_flag(resources, "WRITE_VERTEX_COLOURS"));
  const threemfObjects objects(document, *turn, *bodies, joined, colours);
  if (objects.items().empty()) {
    output.message(velabsERROR, reason_for_no_objects(objects, joined, join_tolerance));
    return velabsFAILED;
  }
  const vltCarries carries{
      .format = "3MF", .parts = true, .tree = true, .colours = true, .material_names = true, .vertex_colours = true};
  vlt_tell_losses(document, *bodies, carries, resources, output);
  tell_left_out(objects, output);
  tell_collapsed(joined, output);
  tell_open_edges(*bodies, joined, output);
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
