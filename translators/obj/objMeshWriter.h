#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "objLooks.h"
#include "velTableInstance.h"
#include "vltNames.h"
#include "vltProgress.h"
#include "vltRenames.h"
#include "vltTextOutput.h"
#include "vltVertexLists.h"

// Writes the objects of a file. Vertices are written before the first object that uses them; later objects with the
// same vertices and placement refer to them, and the same holds for normals. Faces and corners keep their order; the
// corners of a mirrored body are reversed. In OBJ, all corners of a face have a normal or none: if only some have one,
// the others get the face normal.
class objMeshWriter {
 public:
  // `looks` is null when no materials are written.
  objMeshWriter(velabsOfStream& stream, const velTableInstance& resources, int digits, objLooks* looks,
                const vltVertexLists& lists, vltProgress& progress, velabsOutput& output);

  // Writes the next body; `number` is its index. False when the work is cancelled, the stream fails, or a coordinate
  // cannot be written, which is reported.
  bool write(const vltPlacedMesh& body, std::size_t number);

  // Reports, in one note, which parts are renamed in the file.
  void tell_renamed() const { renames_.tell("OBJ names each part by one line that no other has", output_); }

 private:
  // The start of a vertex list in the file, counted from 1.
  struct Written {
    std::size_t first_vertex;
    std::size_t first_normal;   // vertex normals; 0 when there are none
    std::size_t first_in_pool;  // normal pool; 0 when there is none
  };

  const Written* written(const vltPlacedMesh& body, std::size_t number);
  bool points(const vltPlacedMesh& body);
  // Writes normals and returns the number of the first one; 0 without any.
  std::size_t normals(const std::vector<annVector>& normals, const annTransform& placement);
  void normal(annVector own, const annTransform& placement);
  bool faces(const vltPlacedMesh& body, const Written& at);
  // Sets the normal number of each corner of a face; empty for a face without normals. A corner without a normal gets
  // that of the face, or leaves a face without area without normals.
  void find_normals(const vltPlacedMesh& body, std::size_t face, const Written& at);
  void numbers(std::span<const double> values);

  velabsOfStream& stream_;
  velabsOutput& output_;
  vltTextOutput text_;
  objLooks* looks_;
  vltProgress& progress_;
  bool with_normals_, with_colours_;
  const vltVertexLists& lists_;
  std::vector<Written> written_;
  std::vector<std::size_t> face_normals_;
  std::size_t next_normal_ = 1;
  std::size_t done_ = 0;
  std::string material_;
  vltUniqueNames names_;
  vltRenames renames_;
};
