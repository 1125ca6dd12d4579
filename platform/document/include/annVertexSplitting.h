#pragma once

#include <memory>
#include <vector>

#include "annMesh.h"
#include "apExport.h"

// How to treat meshes without normals.
enum annBareMeshes { annBARE_STAY, annBARE_GET_FACE_NORMALS };

// Converts meshes for formats that have one normal for each vertex: meshes with `corner_normals` are replaced by meshes
// whose vertices have `normals`. A point with several normals becomes several vertices, one for each normal; normals
// that differ only by rounding are treated as equal. The original vertex keeps its index and gets the first normal in
// corner order. The new vertices are appended in the order in which corners need them.
//
// Meshes that share vertices also share the new ones. A corner without a normal gets that of its face. A vertex without
// a normal from any corner, because it is unused or only in faces without area, gets an arbitrary direction. Meshes
// without `corner_normals` stay the same objects, unless they share vertices with one that has them, or have no normals
// and `bare` requests those of their faces.
VELPLATFORM_API void ann_split_vertices(std::vector<std::shared_ptr<const annMesh>>& meshes,
                                        annBareMeshes bare = annBARE_STAY);
