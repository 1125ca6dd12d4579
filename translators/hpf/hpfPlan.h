#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "annDocument.h"
#include "hpfLayout.h"

// A chunk to write: its records and arrays, each of which starts at a multiple of 64 bytes.
struct hpfChunk {
  std::array<char, 4> name;
  std::uint32_t flags;
  std::vector<std::string_view> pieces;

  std::uint64_t length() const {
    std::uint64_t sum = 0;
    for (std::string_view piece : pieces) sum += hpf_aligned(piece.size());
    return sum;
  }
};

// The chunks of a document: vertices, meshes and shapes in the order of their first use, each after the objects that
// it refers to, then the nodes. Arrays are not copied from the document, which must outlive the plan.
class hpfPlan {
 public:
  // The mesh of a node; null for none.
  using MeshOf = std::function<std::shared_ptr<const annMesh>(const annNode&)>;

  // False, with the reason in `failure`, when a shape cannot be saved.
  bool make(const annDocument& document, const MeshOf& mesh_of, std::string& failure);

  const std::vector<hpfChunk>& chunks() const { return chunks_; }

  // The lowest minor version that has all chunks of the plan.
  std::uint32_t minor() const { return minor_; }

 private:
  using Numbers = std::unordered_map<const void*, std::uint32_t>;

  std::uint32_t number_of(const annVertices& vertices);
  std::uint32_t number_of(const std::shared_ptr<const annMesh>& mesh);
  bool number_of(const annExactShape& shape, std::uint32_t& number, std::string& failure);

  hpfChunk& add_chunk(const std::array<char, 4>& name);
  // Adds a chunk that version 1.0 does not have and its readers skip.
  hpfChunk& add_newer_chunk(const std::array<char, 4>& name);
  void add_instance_names(const std::vector<const annNode*>& nodes);
  // Stores bytes that are not part of the document.
  std::string_view keep(std::string bytes);
  template <typename Record>
  std::string_view keep_record(const Record& record);

  std::vector<hpfChunk> chunks_;
  std::uint32_t minor_ = 0;
  std::deque<std::string> kept_;
  std::vector<std::shared_ptr<const annMesh>> meshes_;
  Numbers vertices_numbers_, mesh_numbers_, shape_numbers_;
};
