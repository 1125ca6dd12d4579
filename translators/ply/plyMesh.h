#pragma once

#include <array>
#include <memory>
#include <string>

#include "annMesh.h"
#include "plyPlan.h"
#include "vltPalette.h"

// Builds the mesh from the entries of a file. Colours are first stored as in the file, because real numbers may be on
// a scale of 1 or 255. They are converted to the range 0 to 1 at the end.
class plyMesh {
 public:
  // `vertex_count` comes from the header: faces may come first.
  plyMesh(std::size_t vertex_count, double factor, vltOnce& findings)
      : vertex_count_(vertex_count), factor_(factor), findings_(findings), palette_(*mesh_) {}

  const std::shared_ptr<annMesh>& mesh() const { return mesh_; }
  std::size_t vertex_count() const { return vertex_count_; }
  std::size_t faces_left_out() const { return faces_left_out_; }
  double factor() const { return factor_; }

  // Call before the entries of an element; `bytes` is the maximum number of bytes left in the file.
  void begin(const plyPlan& plan, std::size_t bytes);

  // False when the entry is invalid; `reason` then has the reason.
  bool vertex(const plyEntry& entry);
  bool face(const plyEntry& entry);
  // A strip of triangles; -1 starts a new one. Triangles with two equal corners connect strips and are skipped.
  bool strip(const plyEntry& entry);
  const std::string& reason() const { return reason_; }

  // Sets the colour of the next face without one.
  void add_face_colour(const std::array<double, 4>& components) {
    looks_.push_back(palette_.number_of(raw_colour(components.data())));
  }
  bool has_face_colours() const { return face_colours_; }

  // Call after the last entry.
  void finish();

 private:
  bool take_corners(const plyEntry& entry);
  bool is_vertex(long long number);
  bool has_room(std::size_t corners);
  annColour raw_colour(const double* components);
  void drop_odd_components();
  void finish_vertex_colours();
  void finish_materials();

  std::shared_ptr<annMesh> mesh_ = std::make_shared<annMesh>();
  std::size_t vertex_count_;
  double factor_;
  vltOnce& findings_;
  vltPalette palette_;
  bool normals_ = false, colours_ = false, face_colours_ = false;
  bool vertex_opacity_ = false, face_opacity_ = false;
  std::array<float, 4> full_vertex_{}, full_face_{};
  std::vector<std::uint32_t> corners_;  // of one face
  std::vector<std::uint32_t> looks_;    // of the first faces, or of all
  std::size_t faces_left_out_ = 0;
  std::string reason_;
};
