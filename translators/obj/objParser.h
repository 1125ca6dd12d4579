#pragma once

#include <span>

#include "apMappedFile.h"
#include "objMaterials.h"
#include "objParts.h"
#include "objVertices.h"
#include "velTableInstance.h"
#include "velabsResult.h"
#include "vltLines.h"

// Parses the statements of one file into a document.
//
// Statements that do not belong to polygon meshes are skipped and reported once for each kind. A face with fewer than
// three corners is skipped with a warning. A corner with an undefined vertex is an error; one with an undefined normal
// has no normal. Normals belong to corners, in the normal pool of the vertices, unless each vertex has the same normal
// at all its corners.
class objParser {
 public:
  objParser(const utString& name, apMappedFile& file, const velTableInstance& resources, annDocument& document,
            velabsOutput& output, double factor);

  velabsResult read();

 private:
  // The highest index that corners refer to in a list: vertices may follow the faces that use them.
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
  // Records the highest index that the file refers to.
  void reach(Reach& so_far, std::size_t needed) const {
    if (needed > so_far.needed) so_far = {needed, lines_.line()};
  }
  bool take_reference(std::string_view& word, std::size_t known, Reach& so_far, std::uint32_t& number, bool& exists);
  void add_face();
  bool fail(std::string_view reason) const;
  bool finish();
  void finish_materials();
  void finish_normals();
  // False, without a change, when a corner has no normal or two corners of one vertex differ. An unused vertex gets an
  // arbitrary normal.
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
