#pragma once

#include <array>
#include <memory>
#include <string>

#include "annMesh.h"
#include "plyPlan.h"
#include "vltPalette.h"

// The mesh that the entries of a file make. Colours are taken as they stand in the file and brought into the range from
// 0 to 1 at the end, because real numbers up to 255 are in use too.
class plyMesh {
 public:
  // `vertex_count` is what the head says: faces may come first.
  plyMesh(std::size_t vertex_count, double factor, vltOnce& findings)
      : vertex_count_(vertex_count), factor_(factor), findings_(findings), palette_(*mesh_) {}

  const std::shared_ptr<annMesh>& mesh() const { return mesh_; }
  std::size_t vertex_count() const { return vertex_count_; }
  std::size_t faces_left_out() const { return faces_left_out_; }
  double factor() const { return factor_; }

  // To be called before the entries of an element; `bytes` is how much of the file is left at most.
  void begin(const plyPlan& plan, std::size_t bytes);

  // False when the entry cannot be; the reason is then in `reason`.
  bool vertex(const plyEntry& entry);
  bool face(const plyEntry& entry);
  // A strip of triangles, -1 beginning a new one. Triangles with two equal corners join strips and are dropped.
  bool strip(const plyEntry& entry);
  const std::string& reason() const { return reason_; }

  // The colour of the next face that has none yet.
  void add_face_colour(const std::array<double, 4>& components) {
    looks_.push_back(palette_.number_of(raw_colour(components.data())));
  }
  bool has_face_colours() const { return face_colours_; }

  // After the last entry.
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
  std::vector<std::uint32_t> looks_;    // of the faces so far, or less
  std::size_t faces_left_out_ = 0;
  std::string reason_;
};
