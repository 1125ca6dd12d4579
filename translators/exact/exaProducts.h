#pragma once

#include <TopoDS_Shape.hxx>
#include <array>
#include <gp_Trsf.hxx>
#include <map>
#include <optional>
#include <vector>

#include "annDefinitions.h"
#include "exaExport.h"
#include "exaFaceColours.h"
#include "velRepresentationOption.h"
#include "velTableInstance.h"
#include "velabsOutput.h"
#include "vltFacets.h"
#include "vltOnce.h"

// A part with its shape, or an assembly of other products, as the kernel's formats store them.
struct exaProduct {
  struct Use {
    std::size_t product;
    gp_Trsf location;
    utString instance_name{};   // empty for an instance without a name
    bool is_own_shape = false;  // the shape of a part that also has children
  };
  utString name;
  TopoDS_Shape shape;            // null for assemblies
  std::size_t planar_faces = 0;  // planar faces made of a mesh
  std::optional<annColour> colour;
  exaFaceColours face_colours;
  std::vector<Use> uses;
};

// False, with a message, when the meshes give more planar faces than FACET_LIMIT allows.
VELEXACT_API bool exa_allows_planar_faces(std::size_t count, const velTableInstance& resources, velabsOutput& output);

// A document as products, each made once whatever its number of instances. Locations only rotate and translate; where
// the document scales or mirrors, the shapes themselves are changed. REPRESENTATION selects how meshes and exact
// shapes are written, FACET_LIMIT limits the number of planar faces of all meshes.
class VELEXACT_API exaProducts {
 public:
  // `format` is the name of the written format, for messages.
  exaProducts(const annDocument& document, const char* format, const velTableInstance& resources, double factor,
              velabsOutput& output);

  // False, with a message, when there is nothing to write or a part cannot be made. False without a message when
  // cancelled.
  bool make();

  // A product comes after the products that it uses.
  const std::vector<exaProduct>& products() const { return products_; }
  const std::vector<exaProduct::Use>& top() const { return top_; }
  bool has_assemblies() const;
  bool has_names() const;
  bool has_colours() const;
  bool has_see_through_colours() const;

 private:
  // Identifies a product: a definition, the transform of its shapes, and the inherited colour.
  struct Key {
    std::size_t definition;
    std::array<double, 12> change;
    std::array<float, 4> colour;  // negative without a colour
    auto operator<=>(const Key&) const = default;
  };
  struct Made {
    TopoDS_Shape shape;
    std::size_t planar_faces = 0;
    exaFaceColours colours;
  };

  bool is_exact(const annBody& body) const;
  // Counts the planar faces to make. False, with a message, when they are too many or all bodies are only vertices.
  bool count_planar_faces();
  bool add_uses(const std::vector<annDefinitions::Use>& uses, const annTransform& change,
                const std::optional<annColour>& colour, std::vector<exaProduct::Use>& target);
  // Sets the product of a definition, or none when the definition is empty. False, with a message, when it cannot be
  // made.
  bool find(std::size_t definition, const annTransform& change, const std::optional<annColour>& around,
            std::optional<std::size_t>& product);
  const Made* shape_of(const annNode& node, const annTransform& change);
  bool make_exact(const annNode& node, const annTransform& change, Made& made);
  bool make_planar(const annNode& node, const annTransform& change, Made& made);
  bool fail(const annNode& node, const std::string& why);

  const velRepresentationOption wanted_;
  const annDocument& document_;
  const char* const format_;
  const velTableInstance& resources_;
  velabsOutput& output_;
  annDefinitions definitions_;
  vltFacets facets_;
  vltOnce findings_;
  bool left_out_ = false;  // faces without an area
  annTransform change_;
  std::size_t planar_faces_ = 0;       // total expected number
  std::size_t planar_faces_made_ = 0;  // number made so far
  std::map<Key, std::optional<std::size_t>> numbers_;
  std::map<std::pair<const void*, std::array<double, 12>>, Made> shapes_;
  std::vector<exaProduct> products_;
  std::vector<exaProduct::Use> top_;
};
