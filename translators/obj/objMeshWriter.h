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

// Writes the objects of a file. Vertices stand before the first object that uses them; later objects with the same
// vertices in the same place refer to them, and so it is with normals. Faces keep their order and their corners; those
// of a mirrored body are turned round. OBJ gives normals to all corners of a face or to none: in a face where some have
// one, the others get the normal of the face.
class objMeshWriter {
 public:
  // `looks` is null when no materials are written.
  objMeshWriter(velabsOfStream& stream, const velTableInstance& resources, int digits, objLooks* looks,
                const vltVertexLists& lists, vltProgress& progress, velabsOutput& output);

  // The body of a number, which is to be the next one. False when the work is cancelled, the stream failed, or a
  // coordinate cannot be written, which is then said.
  bool write(const vltPlacedMesh& body, std::size_t number);

  // Says in one note which names of parts are others in the file.
  void tell_renamed() const { renames_.tell("OBJ names each part by one line that no other has", output_); }

 private:
  // Where a list of vertices begins in the file, counted from 1.
  struct Written {
    std::size_t first_vertex;
    std::size_t first_normal;   // of the vertices; 0 when they have none
    std::size_t first_in_pool;  // of the pool; 0 when there is none
  };

  const Written* written(const vltPlacedMesh& body, std::size_t number);
  bool points(const vltPlacedMesh& body);
  // Gives the number of the first one, 0 without any.
  std::size_t normals(const std::vector<annVector>& normals, const annTransform& placement);
  void normal(annVector own, const annTransform& placement);
  bool faces(const vltPlacedMesh& body, const Written& at);
  // The number of the normal at each corner of a face, 0 for none.
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
