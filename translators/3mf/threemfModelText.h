#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "threemfObjects.h"

// The XML of the model part, produced piece by piece on demand.
class threemfModelText {
 public:
  struct Form {
    std::string_view unit;
    double factor = 1;  // for the lengths of placements; meshes are already in the unit of the file
    int digits = 0;
  };

  // All arguments must outlive the text.
  threemfModelText(const threemfObjects& objects, const threemfColours& colours, const Form& form);

  // The next piece, of at most a few hundred kilobytes; empty at the end, and when `overflow()`.
  std::string_view next();

  // True when the length of a placement overflowed.
  bool overflow() const { return overflow_; }
  // True when names had characters that XML cannot store.
  bool replaced_characters() const { return replaced_; }

  // The number of vertices and triangles.
  std::size_t work() const { return work_; }
  std::size_t work_done() const { return work_done_; }
  // An upper bound for the size of the text.
  std::uint64_t size_bound() const { return size_bound_; }

 private:
  enum Step { HEAD, OBJECT, VERTICES, TRIANGLES, ASSEMBLIES, BUILD, END };

  void head();
  void groups();
  void begin_mesh();
  std::optional<threemfColours::Property> property_of_object();
  void choose_looks();
  void vertices();
  void triangles();
  void triangle(std::size_t number);
  // The index of the vertex colour in the colour group.
  std::uint32_t vertex_colour(std::uint32_t vertex) const;
  void assemblies();
  void build();
  void use(std::string_view element, const threemfPlacedObject& placed);
  void name(const utString& name);
  bool full() const { return block_.size() >= block_size; }

  static constexpr std::size_t block_size = std::size_t{1} << 18;

  const threemfObjects& objects_;
  const threemfColours& colours_;
  const Form form_;
  std::string block_;
  Step step_ = HEAD;
  std::size_t object_ = 0;  // mesh object, then assembly, then item
  std::size_t at_ = 0;      // vertex, then triangle
  bool overflow_ = false;
  bool replaced_ = false;
  std::size_t work_ = 0;
  std::size_t work_done_ = 0;
  std::uint64_t size_bound_ = 0;

  // Data of the current mesh.
  const threemfMeshObject* mesh_ = nullptr;
  std::vector<std::string> looks_;  // its materials as attributes
  bool coloured_vertices_ = false;
};
