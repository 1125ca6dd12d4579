#pragma once

#include <string>
#include <vector>

#include "annTriangulation.h"
#include "gltfPlan.h"
#include "velabsOfStream.h"
#include "vltProgress.h"

// Writes binary data to a stream, raw or as base64.
class gltfSink {
 public:
  gltfSink(velabsOfStream& stream, bool base64) : stream_(stream), base64_(base64) {}

  void put(std::string_view bytes);
  // Call after the last byte.
  void finish();
  bool good() const { return stream_.good(); }

 private:
  velabsOfStream& stream_;
  bool base64_;
  std::string rest_;  // bytes that do not yet fill a group of base64 characters
};

// Writes the data of a plan in its order. For each mesh: the vertices, unless they were written before, and the
// triangles of its groups.
class gltfDataWriter {
 public:
  gltfDataWriter(const gltfPlan& plan, gltfSink& sink, velabsOutput& output);

  // False when the stream fails or the work is cancelled.
  bool write();

 private:
  bool write_pool(const gltfPlan::Pool& pool);
  bool write_colours(const std::vector<annColour>& colours, std::size_t components);
  bool write_groups(const gltfPlan::Mesh& mesh);
  template <typename Index>
  bool write_triangles(const annMesh& mesh, const std::uint32_t* order, std::size_t first, std::size_t last);
  template <typename Fill>
  bool write_floats(std::size_t count, std::size_t components, Fill fill);
  bool put(const void* bytes, std::size_t size);
  bool align();

  const gltfPlan& plan_;
  gltfSink& sink_;
  vltProgress progress_;
  annTriangulator triangulator_;
  std::size_t written_ = 0;
};
