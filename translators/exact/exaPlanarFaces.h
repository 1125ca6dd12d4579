#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "annMesh.h"
#include "exaExport.h"

// The planar faces of a mesh: its flat faces unchanged, all others as triangles.

using exaCorners = std::span<const std::uint32_t>;

// Twice the area of a face, along its normal.
annVector exa_area_vector(const std::vector<annVector>& points, exaCorners corners);

// Calls `use` with the mesh face number and the corners of each planar face, until it returns false.
void exa_for_each_planar_face(const annMesh& mesh, const std::function<bool(std::size_t, exaCorners)>& use);

VELEXACT_API std::size_t exa_planar_face_count(const annMesh& mesh);
