#include "vltVertexLists.h"

#include "annPlacedVertices.h"

vltVertexLists::vltVertexLists(const std::vector<vltPlacedMesh>& bodies) {
  annPlacedVertices placed;
  for (const vltPlacedMesh& body : bodies) {
    const annVertices& vertices = *body.mesh->vertices;
    const std::size_t number = placed.number_of(vertices, body.placement);
    list_of_.push_back(number);
    if (number < lists_.size()) continue;
    lists_.push_back({&vertices, body.placement, count_});
    count_ += vertices.points.size();
  }
}
