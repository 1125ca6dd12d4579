#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "triFormat.h"
#include "velabsLibOutput.h"

// Writes every part of a model in its place, one after another.
class triWriter : public triFormat<velabsLibOutput> {
 public:
  explicit triWriter(velabsOfStream* stream) : stream_(*stream) {}

  const char* description() const override { return "Writes triangles as text, nine numbers on each line."; }
  void file_types(intcoSet&) const override {}  // file types are only used for reading
  velabsResult write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) override;

 private:
  // The facets of a body and their placement.
  struct Part {
    std::shared_ptr<const annMesh> mesh;
    annTransform placement;
  };

  bool collect_parts(const annDocument& document, const velTableInstance& resources, velabsOutput& output);
  velabsResult write_part(const Part& part, velabsOutput& output);
  bool write_triangle(const annVector (&corners)[3]);
  bool is_stopped(velabsOutput& output);

  velabsOfStream& stream_;
  std::vector<Part> parts_;
  std::size_t triangles_ = 0;
  std::size_t written_ = 0;
};
