#pragma once

#include <span>

#include "apMappedFile.h"
#include "objMaterials.h"
#include "objParts.h"
#include "objVertices.h"
#include "velTableInstance.h"
#include "velabsResult.h"
#include "vltLines.h"

// Reads the statements of one file, from front to back, into a document.
//
// What is no polygon mesh is left out and told once for each kind. A face of fewer than three corners is left out with
// a warning; a corner that names a vertex which the file does not have is an error. One that names such a normal has
// none. Normals stay with the corners, in the pool of the vertices, unless every vertex has one at all its corners.
class objParser {
 public:
  objParser(const utString& name, apMappedFile& file, const velTableInstance& resources, annDocument& document,
            velabsOutput& output, double factor);

  velabsResult read();

 private:
  // How far the corners of faces reach into one of the lists: vertices may follow the faces that use them.
  struct Reach {
    std::size_t needed = 0;
    std::size_t line = 0;
  };
  struct Corner {
    std::uint32_t vertex;
    std::uint32_t normal;
  };

  bool statement(std::string_view line);
  void other_statement(std::string_view keyword);
  bool face(std::string_view rest);
  void take_plain_corners(std::string_view& rest);
  bool corner(std::string_view word, Corner& corner);
  // Notes the highest number that the file refers to.
  void reach(Reach& so_far, std::size_t needed) const {
    if (needed > so_far.needed) so_far = {needed, lines_.line()};
  }
  bool take_reference(std::string_view& word, std::size_t known, Reach& so_far, std::uint32_t& number, bool& exists);
  void add_face();
  bool fail(std::string_view reason) const;
  bool finish();
  void finish_materials();
  void finish_normals();
  // False, and nothing done, when a corner has no normal or two corners of one vertex differ. A vertex that no face
  // uses gets some direction.
  bool give_normals_to_vertices();

  apMappedFile& file_;
  velabsOutput& output_;
  bool read_materials_;
  vltOnce findings_;
  vltLines lines_;
  objVertices vertices_;
  objParts parts_;
  objMaterials materials_;
  Reach vertex_reach_, normal_reach_;
  std::uint32_t material_ = annMesh::no_material;
  std::vector<std::uint32_t> face_corners_, face_normals_;
  std::size_t faces_ = 0;
  std::size_t faces_left_out_ = 0;
  bool has_unknown_statements_ = false;
};
