#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "velabsOfStream.h"
#include "velabsResult.h"
#include "vltOneMesh.h"
#include "vltProgress.h"

// The layout of the two elements of a written file: "vertex", then "face".
//
// Coordinates are floats if that is exact, else doubles. Normals are floats. Vertex colours are bytes if that is
// exact, else floats. Face colours are bytes; the format stores them for all faces or none, so faces without one are
// light grey when others have one. List counts are bytes unless a face has more than 255 corners.
struct plyContent {
  enum class Colours { none, bytes, floats };

  explicit plyContent(const vltOneMesh& one_mesh);

  const vltOneMesh& mesh;
  bool doubles, normals;
  Colours vertex_colours;
  bool face_colours;
  bool wide_lists;

  // `form` is the name of the form in the header.
  std::string head(std::string_view form) const;
};

// The colours of a body's faces as bytes.
class plyFaceColours {
 public:
  using Bytes = std::array<std::uint8_t, 4>;

  explicit plyFaceColours(const vltPlacedMesh& body);
  const Bytes& of(std::size_t face) const {
    const std::uint32_t material = mesh_.face_material(face);
    return material == annMesh::no_material ? plain_ : materials_[material];
  }

 private:
  const annMesh& mesh_;
  Bytes plain_{204, 204, 204, 255};
  std::vector<Bytes> materials_;
};

// Reports progress and checks whether to continue.
class plyPace {
 public:
  plyPace(const plyContent& content, velabsOfStream& stream, velabsOutput& output)
      : stream_(stream), progress_(output, content.mesh.lists().vertex_count() + content.mesh.face_count(), step) {}

  // False when the work is cancelled or the stream fails.
  bool go_on(std::size_t entries) {
    cancelled_ = !progress_.reached(done_ += entries);
    return !cancelled_ && stream_.good();
  }
  velabsResult result() const { return cancelled_ ? velabsCANCELLED : velabsFAILED; }

 private:
  static constexpr std::size_t step = std::size_t{1} << 15;
  velabsOfStream& stream_;
  vltProgress progress_;
  std::size_t done_ = 0;
  bool cancelled_ = false;
};
