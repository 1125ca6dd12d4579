#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "annDocument.h"
#include "velTableInstance.h"
#include "velabsOutput.h"

// A body as a mesh format writes it: facets, where they stand, and how the part is called and coloured.
struct vltPlacedMesh {
  const annNode* node;
  std::shared_ptr<const annMesh> mesh;
  annTransform placement;
  std::optional<annColour> colour;

  // The look of a face: its material's colour, else the part's.
  std::optional<annColour> face_colour(std::size_t face) const {
    const std::uint32_t material = mesh->face_material(face);
    return material == annMesh::no_material ? colour : std::optional(mesh->materials[material].colour);
  }
};

// The bodies of a document in the order of its tree, as `vltFacets` gives them, in a placement of the whole. Nothing,
// and a message, when there is no body or a shape has no facets to give.
std::optional<std::vector<vltPlacedMesh>> vlt_placed_meshes(const annDocument& document,
                                                            const velTableInstance& resources,
                                                            const annTransform& whole, velabsOutput& output);

// False, and a message that names the format, when no body has a face. For formats that hold nothing but faces.
bool vlt_has_faces(const std::vector<vltPlacedMesh>& bodies, const char* format, velabsOutput& output);

// The bodies for a format that states no length unit and whose up axis is `up`: in the unit that `vlt_output_scale`
// chooses, turned as `vlt_written_turn` says.
struct vltWrittenMeshes {
  std::vector<vltPlacedMesh> bodies;
  velLengthUnit unit = velLENGTH_UNSPECIFIED;
};
std::optional<vltWrittenMeshes> vlt_written_meshes(const annDocument& document, annUpAxis up,
                                                   const velTableInstance& resources, velabsOutput& output);
