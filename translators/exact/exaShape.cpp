#include "exaShape.h"

#include <BRepBndLib.hxx>
#include <Bnd_Box.hxx>
#include <Precision.hxx>
#include <TopExp_Explorer.hxx>
#include <TopLoc_Location.hxx>
#include <TopoDS.hxx>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "exaBox.h"
#include "exaFacets.h"
#include "exaPlacement.h"
#include "exaSession.h"

namespace {

// The default tolerance: a two thousandth of the part's size.
constexpr double default_chord = 0.0005;
constexpr double default_angle = 0.35;  // about 20 degrees

// A smaller tolerance would give millions of facets for one sphere.
constexpr double least_chord = 1e-5;
constexpr double least_angle = std::numbers::pi / 180;

// The kernel treats closer points as one.
const double closest_chord = 10 * Precision::Confusion();

std::size_t count(const TopoDS_Shape& shape, TopAbs_ShapeEnum kind) {
  std::size_t result = 0;
  for (TopExp_Explorer explorer(shape, kind); explorer.More(); explorer.Next()) ++result;
  return result;
}

annBox moved(annBox box, annVector by) {
  return {box.min + by, box.max + by};
}

annBox scaled(annBox box, double factor) {
  annBox result{box.min * factor, box.min * factor};
  result.include(box.max * factor);
  return result;
}

}  // namespace

exaShape::exaShape(TopoDS_Shape shape, exaFaceColours colours, bool allow_gaps)
    : shape_(std::move(shape)), colours_(std::move(colours)), allow_gaps_(allow_gaps) {
  content_ = {count(shape_, TopAbs_SOLID), count(shape_, TopAbs_FACE)};
}

exaShape::~exaShape() = default;

// The tightest box would take longer to compute than the facets, so this box may be slightly too large.
double exaShape::size() const {
  std::call_once(measured_, [this] {
    exa_failure_of([this] {
      Bnd_Box box;
      for (TopExp_Explorer it(shape_, TopAbs_FACE); it.More(); it.Next()) {
        const TopoDS_Face face = TopoDS::Face(it.Current());
        if (exa_can_be_meshed(face)) BRepBndLib::Add(face, box, false);
      }
      if (!box.IsVoid() && !box.IsOpen()) size_ = std::sqrt(box.SquareExtent());
    });
  });
  return size_;
}

annTolerance exaShape::least_tolerance() const {
  return {std::max(size() * least_chord, closest_chord), least_angle};
}

std::shared_ptr<const annMesh> exaShape::facets(const annTolerance& wanted, apStatus& status,
                                                annProgress* progress) const {
  annTolerance tolerance = wanted;
  if (!(tolerance.chord > 0)) tolerance.chord = size() * default_chord;
  if (!(tolerance.angle > 0)) tolerance.angle = default_angle;
  const annTolerance least = least_tolerance();
  tolerance.chord = std::max(tolerance.chord, least.chord);
  tolerance.angle = std::max(tolerance.angle, least.angle);

  std::lock_guard guard(lock_);
  std::shared_ptr<const annMesh> mesh = mesh_.lock();
  if (!mesh || tolerance.chord != mesh_tolerance_.chord || tolerance.angle != mesh_tolerance_.angle) {
    std::size_t missing = 0;
    const std::string failure =
        exa_failure_of([&] { mesh = exa_facets(shape_, colours_, tolerance, missing, progress); });
    if (!failure.empty()) {
      status.set_failure(failure);
      return nullptr;
    }
    if (!mesh) {
      status.set_failure("the work was stopped");
      return nullptr;
    }
    mesh_ = mesh;
    mesh_tolerance_ = tolerance;
    mesh_gaps_.clear();
    if (missing > 0) {
      mesh_gaps_ = std::to_string(missing) + " of its " + std::to_string(content_.faces) + " faces cannot be meshed";
    }
  }
  if (mesh_gaps_.empty()) return mesh;
  if (allow_gaps_) {
    status.set_failure(mesh_gaps_ + " and are left out");
    return mesh;
  }
  status.set_failure(mesh_gaps_ + "; to leave them out, read the file with --in allow-gaps=1");
  return nullptr;
}

std::optional<annBox> exaShape::box(const annTransform& placement) const {
  const exaPlacementParts parts = exa_parts(placement);
  const auto& s = parts.shape.m;
  const bool is_even = annTransform::scaling(s[0]) == parts.shape;
  std::optional<annBox> result;
  if (!is_even) {
    exa_failure_of([&] { result = exa_box(exa_changed(shape_, placement)); });
    return result;
  }

  // A box can be moved and scaled with its shape. Only another rotation needs a new measurement.
  annTransform turn = parts.location;
  turn.m[3] = turn.m[7] = turn.m[11] = 0;
  const auto& m = turn.m;
  const std::array<double, 9> key{m[0], m[1], m[2], m[4], m[5], m[6], m[8], m[9], m[10]};
  {
    std::lock_guard guard(lock_);
    if (turned_ == key) result = box_;
  }
  if (!result) {
    exa_failure_of([&] {
      const TopoDS_Shape turned = turn.is_identity() ? shape_ : shape_.Moved(TopLoc_Location(exa_trsf(turn)), false);
      result = exa_box(turned);
    });
    if (!result) return result;
    std::lock_guard guard(lock_);
    turned_ = key;
    box_ = result;
  }
  const auto& at = parts.location.m;
  return moved(scaled(*result, s[0]), {at[3], at[7], at[11]});
}
