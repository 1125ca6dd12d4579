#pragma once

#include <optional>

#include "apMappedFile.h"
#include "plyHead.h"
#include "plyMesh.h"
#include "plyTriangles.h"
#include "velabsResult.h"
#include "vltProgress.h"

// Reads the elements of a file, in file order, into one mesh: "vertex" with its coordinates, "face" and "tristrips"
// with their lists of vertices. Everything else is skipped and named in a note.
//
// A face with fewer than three corners is skipped with a warning; one with an undefined vertex is an error. Vertices
// without faces become a mesh without faces, with a warning.
class plyBody {
 public:
  plyBody(apMappedFile& file, const plyHead& head, bool materials, double factor, velabsOutput& output);

  velabsResult read();
  const std::shared_ptr<annMesh>& mesh() const { return mesh_.mesh(); }

 private:
  bool make_plans();
  template <typename Source>
  velabsResult read_from(Source source);
  template <typename Source>
  bool read_element(Source& source, const plyPlan& plan);
  template <typename Source>
  bool read_entry(Source& source, const plyPlan& plan, std::size_t number);
  template <typename Source>
  bool read_values(Source& source, const plyPlan& plan);
  template <typename Source>
  std::size_t read_triangles(Source& source, const plyTriangles& triangles, std::size_t most);
  template <typename Source>
  bool read_vertices(Source& source, const plyPlan& plan);
  bool take(const plyPlan& plan);
  bool fail(const std::string& place, const plyPlan& plan, std::size_t number, const std::string& reason);
  bool has_geometry();

  std::string_view bytes_;
  const plyHead& head_;
  bool materials_;
  velabsOutput& output_;
  vltOnce findings_;
  plyMesh mesh_;
  vltProgress progress_;
  std::vector<plyPlan> plans_;
  plyEntry entry_;
  std::size_t face_entries_ = 0;
  bool cancelled_ = false;
};
