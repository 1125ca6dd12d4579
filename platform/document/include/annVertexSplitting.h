#pragma once

#include <memory>
#include <vector>

#include "annMesh.h"
#include "apExport.h"

// What becomes of meshes without normals.
enum annBareMeshes { annBARE_STAY, annBARE_GET_FACE_NORMALS };

// Turns meshes into what formats hold that have one normal for each vertex: meshes with `corner_normals` are replaced
// by meshes whose vertices have `normals`. A point with several normals becomes several vertices, one for each normal;
// normals that differ by no more than rounding count as one. The point itself has the first of its normals, in the
// order of the corners, and keeps its number; the other vertices follow all points, in the order in which corners need
// them.
//
// Meshes that share vertices share the new ones. A corner without a normal gets that of its face. A vertex that no
// corner gives a normal, because nothing uses it or only faces without area do, gets some direction. Meshes without
// `corner_normals` stay the same objects, unless they share vertices with one that has them, or have no normals and
// `bare` asks for those of their faces.
VELPLATFORM_API void ann_split_vertices(std::vector<std::shared_ptr<const annMesh>>& meshes,
                                        annBareMeshes bare = annBARE_STAY);
