#include "triWriter.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>
#include <unordered_map>
#include <utility>

#include "annTriangulation.h"
#include "apNumberText.h"

VELABS_OUTPUT_LIBRARY(triWriter)

namespace {

// Checking progress and cancellation for every triangle would take longer than writing it.
constexpr std::size_t triangles_between_reports = std::size_t{1} << 14;

annTolerance tolerance_of(const velTableInstance& resources) {
  // 0 derives the tolerance from the size of the shape.
  return {resources.value<double>("CHORD_TOLERANCE"),
          resources.value<double>("ANGLE_TOLERANCE") * std::numbers::pi / 180};
}

void tell_losses(const std::vector<annPlacedBody>& bodies, velLengthUnit unit, velabsOutput& output) {
  const bool coloured = std::any_of(bodies.begin(), bodies.end(), [](const annPlacedBody& body) {
    return body.colour || (body.node->body.mesh && !body.node->body.mesh->face_materials.empty());
  });
  if (bodies.size() > 1) output.message(velabsNOTE, "TRI holds no parts: their triangles stand one after another");
  if (coloured) output.message(velabsNOTE, "TRI holds no colours: they are not written");
  if (unit != velLENGTH_MILLIMETRE) {
    output.message(velabsNOTE, utString("TRI holds no unit: lengths are written in ") + co_value_to_text(unit));
  }
}

bool is_finite(const annVector& point) {
  return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

}  // namespace

velabsResult triWriter::write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) {
  if (!collect_parts(document, resources, output)) return velabsFAILED;
  for (const Part& part : parts_) {
    if (const velabsResult result = write_part(part, output); result != velabsDONE) return result;
  }
  return velabsDONE;
}

bool triWriter::collect_parts(const annDocument& document, const velTableInstance& resources, velabsOutput& output) {
  const double scale = resources.value<double>("SCALE", 1);
  if (!(scale > 0) || !std::isfinite(scale)) {
    output.message(velabsERROR, "SCALE must be a number greater than 0");
    return false;
  }
  const std::vector<annPlacedBody> bodies = ann_placed_bodies(document);
  if (bodies.empty()) {
    output.message(velabsERROR, "the model holds no shape");
    return false;
  }
  auto unit = resources.value<velLengthUnit>("LENGTH_UNIT", velLENGTH_UNSPECIFIED);
  if (unit == velLENGTH_UNSPECIFIED) unit = velLENGTH_MILLIMETRE;
  tell_losses(bodies, unit, output);

  const annTransform to_file = annTransform::scaling(scale * vel_length_ratio(document.unit, unit));
  const annTolerance tolerance = tolerance_of(resources);
  // A shape with several instances is converted to facets once.
  std::unordered_map<const annExactShape*, std::shared_ptr<const annMesh>> facets;
  for (const annPlacedBody& body : bodies) {
    std::shared_ptr<const annMesh> mesh = body.node->body.mesh;
    if (!mesh) {
      auto& made = facets[body.node->body.shape.get()];
      apStatus status;
      if (!made) made = body.node->body.shape->facets(tolerance, status);
      if (!made) {
        output.message(velabsERROR, "no facets for the shape of " + body.node->name + ": " + status.failure());
        return false;
      }
      mesh = made;
    }
    triangles_ += mesh->triangle_count();
    parts_.push_back({std::move(mesh), to_file * body.placement});
  }
  if (triangles_ > 0) return true;
  output.message(velabsERROR, "the model holds no triangles, and TRI holds nothing else");
  return false;
}

velabsResult triWriter::write_part(const Part& part, velabsOutput& output) {
  const auto& points = part.mesh->vertices->points;
  const bool mirrors = part.placement.mirrors();
  velabsResult result = velabsDONE;
  ann_for_each_triangle(*part.mesh, [&](std::size_t, std::uint32_t a, std::uint32_t b, std::uint32_t c) {
    if (result != velabsDONE) return;
    if (mirrors) std::swap(b, c);
    const annVector corners[]{part.placement.point(points[a]), part.placement.point(points[b]),
                              part.placement.point(points[c])};
    if (!write_triangle(corners)) {
      output.message(velabsERROR, "a coordinate is too large for a number once it is placed and scaled");
      result = velabsFAILED;
    } else if (is_stopped(output)) {
      result = output.cancelled() ? velabsCANCELLED : velabsFAILED;
    }
  });
  return result;
}

bool triWriter::write_triangle(const annVector (&corners)[3]) {
  char* const line = stream_.reserve(9 * (ap_number_room + 1));
  char* end = line;
  for (const annVector& corner : corners) {
    if (!is_finite(corner)) return false;
    for (double number : {corner.x, corner.y, corner.z}) {
      end = ap_write_number(end, number);
      *end++ = ' ';
    }
  }
  end[-1] = '\n';
  stream_.advance(static_cast<std::size_t>(end - line));
  return true;
}

bool triWriter::is_stopped(velabsOutput& output) {
  if (++written_ % triangles_between_reports != 0) return false;
  output.progress(static_cast<int>(100.0 * static_cast<double>(written_) / static_cast<double>(triangles_)));
  return output.cancelled() || !stream_.good();
}
