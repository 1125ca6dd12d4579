#pragma once

#include <vector>

#include "vltPlacedMesh.h"

// The capabilities of a format besides triangles.
struct vltCarries {
  const char* format;
  bool faces_only = false;      // parts without faces are left out
  bool polygons = false;        // faces with more than three corners
  bool parts = false;           // several bodies with names
  bool tree = false;            // assemblies
  bool colours = false;         // colours of parts and faces
  bool opacity = true;          // opacity of these colours; only used with `colours`
  bool material_names = false;  // names of materials
  bool vertex_normals = false;
  bool vertex_colours = false;
  bool vertex_opacity = true;  // opacity of vertex colours, where the format has them
};

// Reports, in one note for each kind, what the document has and the format does not store. Colours that the resources
// WRITE_MATERIALS and WRITE_VERTEX_COLOURS exclude are not reported. If the format has no length unit and the reader
// cannot know it, one more note names it.
void vlt_tell_losses(const annDocument& document, const std::vector<vltPlacedMesh>& bodies, const vltCarries& carries,
                     const velTableInstance& resources, velabsOutput& output);
void vlt_tell_losses(const annDocument& document, const vltWrittenMeshes& meshes, const vltCarries& carries,
                     const velTableInstance& resources, velabsOutput& output);
