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

// The bodies of a document in the order of its tree, as `vltFacets` gives them. A factor that is not 1 goes into the
// placements. Nothing, and a message, when there is no body or a shape has no facets to give.
std::optional<std::vector<vltPlacedMesh>> vlt_placed_meshes(const annDocument& document,
                                                            const velTableInstance& resources, double factor,
                                                            velabsOutput& output);

// What a format can hold of a document beside triangles.
struct vltCarries {
  const char* format;
  bool polygons = false;        // faces of more than three corners
  bool parts = false;           // several bodies with their names
  bool tree = false;            // their arrangement in assemblies
  bool colours = false;         // of parts and faces
  bool opacity = true;          // of these colours, where they are held at all
  bool material_names = false;  // how a colour is called
  bool vertex_normals = false;
  bool vertex_colours = false;
  bool vertex_opacity = true;  // of the colours of vertices, where they are held at all
};

// Says in one note for each kind what the document has and the format does not hold; nothing of colours that the
// resources WRITE_MATERIALS and WRITE_VERTEX_COLOURS leave out. Formats of bare numbers hold no length unit: the note
// names the one that the numbers are in. Formats with a unit of their own give none here.
void vlt_tell_losses(const annDocument& document, const std::vector<vltPlacedMesh>& bodies, const vltCarries& carries,
                     velLengthUnit written_unit, const velTableInstance& resources, velabsOutput& output);
