#include "exaProducts.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <span>

#include "exaPlacement.h"
#include "exaPlanarFaces.h"
#include "exaPlanarShape.h"
#include "exaSession.h"
#include "exaShape.h"
#include "vltNames.h"
#include "vltPlacedMesh.h"
#include "vltUp.h"

namespace {

// The kernel traverses assemblies by recursion.
constexpr std::size_t deepest = 500;

// The share of this step in the progress of the whole writing.
constexpr double percent_of_making = 10;

// The kernel treats 1e100 as infinite, and multiplies lengths to get areas and volumes.
constexpr double largest = 1e50;

// False for NaN too.
bool fits(annVector point) {
  return std::abs(point.x) <= largest && std::abs(point.y) <= largest && std::abs(point.z) <= largest;
}

bool fits(const annMesh& mesh, const annTransform& change) {
  const auto& points = mesh.vertices->points;
  return std::all_of(points.begin(), points.end(),
                     [&](annVector point) { return fits(point) && fits(change.point(point)); });
}

std::shared_ptr<const annMesh> changed(const std::shared_ptr<const annMesh>& mesh, const annTransform& change) {
  auto result = std::make_shared<annMesh>(*mesh);
  result->vertices = std::make_shared<annVertices>();
  result->corner_normals.clear();
  for (annVector point : mesh->vertices->points) result->vertices->points.push_back(change.point(point));
  for (std::size_t face = 0; change.mirrors() && face < mesh->face_count(); ++face) {
    const std::span<const std::uint32_t> corners = mesh->face(face);
    std::reverse_copy(corners.begin(), corners.end(),
                      result->corners.begin() + (corners.data() - mesh->corners.data()));
  }
  return result;
}

// The progress of one mesh as a share of the progress of all.
class Share final : public annProgress {
 public:
  Share(velabsOutput& output, std::size_t before, std::size_t own, std::size_t all)
      : output_(output), before_(before), own_(own), all_(all) {}
  void done(double share) override {
    const double faces = static_cast<double>(before_) + share * static_cast<double>(own_);
    output_.progress(static_cast<int>(percent_of_making * faces / static_cast<double>(all_)));
  }
  bool cancelled() const override { return output_.cancelled(); }

 private:
  velabsOutput& output_;
  std::size_t before_, own_, all_;
};

}  // namespace

bool exa_allows_planar_faces(std::size_t count, const velTableInstance& resources, velabsOutput& output) {
  const int limit = resources.value<int>("FACET_LIMIT", 40000);
  if (limit > 0 && count <= static_cast<std::size_t>(limit)) return true;
  const std::string faces = std::to_string(count);
  output.message(velabsERROR,
                 utString("its meshes would become " + faces + " planar faces, more than the " + std::to_string(limit) +
                          " that FACET_LIMIT allows; write a format of meshes, or give --out facet-limit=" + faces +
                          " where there is memory for them, up to 25 kB for each"));
  return false;
}

exaProducts::exaProducts(const annDocument& document, const char* format, const velTableInstance& resources,
                         double factor, velabsOutput& output)
    : wanted_(resources.value<velRepresentationOption>("REPRESENTATION", velREPRESENTATION_AS_IS)),
      document_(document),
      format_(format),
      resources_(resources),
      output_(output),
      definitions_(document),
      facets_(document, resources, output),
      findings_(output),
      change_(annTransform::scaling(factor)) {}

bool exaProducts::make() {
  if (definitions_.depth() > deepest) {
    output_.message(velabsERROR, utString("its assemblies stand in each other more than " + std::to_string(deepest) +
                                          " deep; flatten them"));
    return false;
  }
  const std::optional<annTransform> turn = vlt_written_turn(annUP_Z, resources_, document_, output_);
  if (!turn || !count_planar_faces()) return false;
  if (!add_uses(definitions_.top(), change_ * *turn, std::nullopt, top_)) return false;
  findings_.tell();
  if (!top_.empty()) return true;
  output_.message(velabsERROR, left_out_ ? "its meshes hold no face that has an area" : "the model holds no shape");
  return false;
}

bool exaProducts::has_assemblies() const {
  return std::any_of(products_.begin(), products_.end(), [](const exaProduct& it) { return it.shape.IsNull(); });
}

bool exaProducts::has_names() const {
  const auto is_named = [](const exaProduct::Use& it) { return !it.instance_name.empty(); };
  return std::any_of(top_.begin(), top_.end(), is_named) ||
         std::any_of(products_.begin(), products_.end(), [&](const exaProduct& it) {
           return !it.name.empty() || std::any_of(it.uses.begin(), it.uses.end(), is_named);
         });
}

bool exaProducts::has_colours() const {
  return std::any_of(products_.begin(), products_.end(),
                     [](const exaProduct& it) { return it.colour || !it.face_colours.empty(); });
}

bool exaProducts::has_see_through_colours() const {
  auto see_through = [](const annColour& colour) { return colour.opacity < 1; };
  return std::any_of(products_.begin(), products_.end(), [&](const exaProduct& it) {
    const auto& of_faces = it.face_colours.colours;
    return (it.colour && see_through(*it.colour)) || std::any_of(of_faces.begin(), of_faces.end(), see_through);
  });
}

bool exaProducts::fail(const annNode& node, const std::string& why) {
  output_.message(velabsERROR, utString("the part " + vlt_quoted(node.name.str()) + ": " + why));
  return false;
}

bool exaProducts::is_exact(const annBody& body) const {
  return body.shape && wanted_ != velREPRESENTATION_FACETS;
}

bool exaProducts::count_planar_faces() {
  if (wanted_ == velREPRESENTATION_EXACT) return true;
  std::set<const annMesh*> seen;
  bool holds_vertices = false, holds_faces = false;
  for (const annDefinitions::Definition& definition : definitions_.definitions()) {
    const annBody& body = definition.node->body;
    holds_faces = holds_faces || is_exact(body);
    if (body.empty() || is_exact(body)) continue;
    const std::shared_ptr<const annMesh> mesh = facets_.of(*definition.node);
    if (!mesh || output_.cancelled()) return false;
    holds_vertices = holds_vertices || !mesh->vertices->points.empty();
    holds_faces = holds_faces || mesh->face_count() > 0;
    if (seen.insert(mesh.get()).second) planar_faces_ += exa_planar_face_count(*mesh);
  }
  if (holds_vertices && !holds_faces) {
    vlt_report_no_faces(format_, output_);
    return false;
  }
  return exa_allows_planar_faces(planar_faces_, resources_, output_);
}

bool exaProducts::add_uses(const std::vector<annDefinitions::Use>& uses, const annTransform& change,
                           const std::optional<annColour>& colour, std::vector<exaProduct::Use>& target) {
  for (const annDefinitions::Use& use : uses) {
    // All shapes are already scaled by `change`; only a placement that scales too needs another shape.
    const exaPlacementParts parts = exa_parts(change * use.transform, change.m[0]);
    const auto& at = parts.location.m;
    if (!fits({at[3], at[7], at[11]})) {
      return fail(*definitions_.definitions()[use.definition].node, "it stands too far away for an exact shape");
    }
    std::optional<std::size_t> product;
    if (output_.cancelled() || !find(use.definition, parts.shape, colour, product)) return false;
    if (product) target.push_back({*product, exa_trsf(parts.location), use.instance_name});
  }
  return true;
}

bool exaProducts::find(std::size_t definition, const annTransform& change, const std::optional<annColour>& around,
                       std::optional<std::size_t>& product) {
  const annDefinitions::Definition& source = definitions_.definitions()[definition];
  const annNode& node = *source.node;
  const std::optional<annColour> colour = node.colour ? node.colour : around;
  const annColour c = colour.value_or(annColour{-1, -1, -1, -1});
  const Key key{definition, change.m, {c.red, c.green, c.blue, c.opacity}};
  if (const auto known = numbers_.find(key); known != numbers_.end()) {
    product = known->second;
    return true;
  }

  exaProduct made;
  made.name = node.name;
  if (!add_uses(source.uses, change, colour, made.uses)) return false;
  if (!node.body.empty()) {
    const Made* const shape = shape_of(node, change);
    if (!shape) return false;
    if (!shape->shape.IsNull()) {
      exaProduct part{node.name, shape->shape, shape->planar_faces, colour, shape->colours, {}};
      if (made.uses.empty()) {
        made = std::move(part);
      } else {
        // A part that has children becomes an assembly of its shape and the children.
        products_.push_back(std::move(part));
        made.uses.insert(made.uses.begin(), {products_.size() - 1, gp_Trsf(), {}, true});
      }
    }
  }
  if (!made.shape.IsNull() || !made.uses.empty()) {
    products_.push_back(std::move(made));
    product = products_.size() - 1;
  }
  numbers_.emplace(key, product);
  return true;
}

const exaProducts::Made* exaProducts::shape_of(const annNode& node, const annTransform& change) {
  const annBody& body = node.body;
  const bool exact = is_exact(body);
  if (!exact && wanted_ == velREPRESENTATION_EXACT) {
    fail(node, "it is a mesh and has no exact shape; ask for another REPRESENTATION or leave it out");
    return nullptr;
  }
  const void* const source = exact       ? static_cast<const void*>(body.shape.get())
                             : body.mesh ? body.mesh.get()
                                         : static_cast<const void*>(body.shape.get());
  const auto [known, is_new] = shapes_.try_emplace({source, change.m});
  Made& made = known->second;
  if (!is_new) return &made;
  bool done = false;
  const std::string failure =
      exa_failure_of([&] { done = exact ? make_exact(node, change, made) : make_planar(node, change, made); });
  if (!failure.empty()) fail(node, failure);
  return done && failure.empty() ? &made : nullptr;
}

bool exaProducts::make_exact(const annNode& node, const annTransform& change, Made& made) {
  apStatus status;
  const std::shared_ptr<const exaShape> shape = exa_shape_of(node.body.shape, status);
  if (!shape) return fail(node, status.failure().str());
  made.shape = exa_changed(shape->shape(), change);
  made.colours = shape->colours();
  return true;
}

bool exaProducts::make_planar(const annNode& node, const annTransform& change, Made& made) {
  const std::shared_ptr<const annMesh> source = facets_.of(node);
  if (!source) return false;
  if (!fits(*source, change)) {
    return fail(node, "a coordinate is too large for an exact shape; write it with a smaller SCALE");
  }
  if (source->face_count() == 0) {
    findings_.count(velabsNOTE, "parts of vertices without faces are left out");
    return true;
  }
  // A mesh keeps flat faces under any scaling, so transform the mesh; the kernel would make B-splines of planes.
  const bool is_even = exa_parts(change).is_even();
  const std::shared_ptr<const annMesh> mesh = is_even ? source : changed(source, change);
  const std::size_t count = exa_planar_face_count(*mesh);
  // A mesh used with several scalings is made once for each.
  planar_faces_ = std::max(planar_faces_, planar_faces_made_ + count);
  if (!exa_allows_planar_faces(planar_faces_, resources_, output_)) return false;
  Share share(output_, planar_faces_made_, count, planar_faces_);
  exaPlanarShape planar = exa_planar_shape(*mesh, share);
  if (output_.cancelled()) return false;
  planar_faces_made_ += count;
  if (planar.left_out > 0) {
    left_out_ = true;
    findings_.count(velabsNOTE, "faces of a mesh that have next to no area are left out", 0, planar.left_out);
  }
  findings_.count(velabsNOTE, "meshes become planar faces, one for each flat facet");
  if (!planar.shape.IsNull()) made.shape = is_even ? exa_changed(planar.shape, change) : planar.shape;
  made.planar_faces = count;
  made.colours = std::move(planar.colours);
  return true;
}
