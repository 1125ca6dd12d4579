#pragma once

#include <compare>
#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "annVertices.h"
#include "gltfAccessors.h"
#include "gltfMaterials.h"

// The accessors that describe the vertices of a primitive.
struct gltfAttributes {
  static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

  std::size_t positions = none;
  std::size_t normals = none;
  std::size_t colours = none;
  gltfBase base{};  // factor of the colours; for vertices without colours, the colour itself

  friend auto operator<=>(const gltfAttributes&, const gltfAttributes&) = default;
};

// The vertices of a mesh: those of all attribute sets, one set after the other.
struct gltfVertexPool {
  std::shared_ptr<annVertices> vertices = std::make_shared<annVertices>();
  std::vector<std::size_t> starts;  // of each set, and the end
  // Set after welding equal points: the new index of each vertex and, if points have several normals, its index in the
  // normal pool.
  std::vector<std::uint32_t> welded, welded_normals;
};

// Makes the vertices of meshes; meshes with the same attribute sets share them.
class gltfVertexPools {
 public:
  struct Options {
    double factor = 1;
    bool weld = false;
  };

  gltfVertexPools(gltfAccessors& accessors, Options options, gltfWork& work, vltOnce& findings)
      : accessors_(accessors), options_(options), work_(work), findings_(findings) {}

  // The result lives as long as this object. Null when an accessor is invalid, with a message, or when the work is
  // cancelled. If all faces have materials, vertex colours equal to those of the materials are removed.
  const gltfVertexPool* find(const std::vector<gltfAttributes>& sets, bool faces_have_looks);

 private:
  bool make(const std::vector<gltfAttributes>& sets, bool faces_have_looks, gltfVertexPool& pool);
  bool add_points(std::size_t accessor, std::vector<annVector>& points);
  bool add_normals(std::size_t accessor, std::size_t expected, std::vector<annVector>& normals);
  bool add_colours(const gltfAttributes& set, std::size_t expected, std::vector<annColour>& colours);
  bool has_count(const gltfAccessor& accessor, std::size_t expected);
  bool fail(const gltfAccessor& accessor, std::string_view reason);
  void weld(gltfVertexPool& pool);
  void weld_normals(gltfVertexPool& pool, const std::vector<std::uint32_t>& first_at, bool agree);

  gltfAccessors& accessors_;
  Options options_;
  gltfWork& work_;
  vltOnce& findings_;
  std::map<std::pair<std::vector<gltfAttributes>, bool>, gltfVertexPool> pools_;
};
