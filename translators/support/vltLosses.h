#pragma once

#include <vector>

#include "vltPlacedMesh.h"

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
// resources WRITE_MATERIALS and WRITE_VERTEX_COLOURS leave out. Where the format states no length unit, one more note
// names that of the numbers if a reader cannot know it.
void vlt_tell_losses(const annDocument& document, const std::vector<vltPlacedMesh>& bodies, const vltCarries& carries,
                     const velTableInstance& resources, velabsOutput& output);
void vlt_tell_losses(const annDocument& document, const vltWrittenMeshes& meshes, const vltCarries& carries,
                     const velTableInstance& resources, velabsOutput& output);
