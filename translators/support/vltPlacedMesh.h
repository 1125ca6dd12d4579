#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "annDocument.h"
#include "velTableInstance.h"
#include "velabsOutput.h"

// A body as a mesh format writes it: facets, placement, name and colour.
struct vltPlacedMesh {
  const annNode* node;
  std::shared_ptr<const annMesh> mesh;
  annTransform placement;
  std::optional<annColour> colour;

  // The colour of a face: its material's, else the part's.
  std::optional<annColour> face_colour(std::size_t face) const {
    const std::uint32_t material = mesh->face_material(face);
    return material == annMesh::no_material ? colour : std::optional(mesh->materials[material].colour);
  }
};

// The bodies of a document in tree order, as `vltFacets` gives them; `whole` is applied to all placements. Empty,
// with a message, when there is no body or a shape has no facets.
std::optional<std::vector<vltPlacedMesh>> vlt_placed_meshes(const annDocument& document,
                                                            const velTableInstance& resources,
                                                            const annTransform& whole, velabsOutput& output);

// False, with a message that names the format, when no body has a face. For formats that store only faces.
bool vlt_has_faces(const std::vector<vltPlacedMesh>& bodies, const char* format, velabsOutput& output);

// The error of `vlt_has_faces`.
void vlt_report_no_faces(const char* format, velabsOutput& output);

// The bodies for a format without a length unit whose up axis is `up`. They are in the unit of `vlt_output_scale` and
// rotated by `vlt_written_turn`.
struct vltWrittenMeshes {
  std::vector<vltPlacedMesh> bodies;
  velLengthUnit unit = velLENGTH_UNSPECIFIED;
};
std::optional<vltWrittenMeshes> vlt_written_meshes(const annDocument& document, annUpAxis up,
                                                   const velTableInstance& resources, velabsOutput& output);
