#pragma once

#include <vector>

#include "pngBand.h"
#include "pngCamera.h"
#include "vltProgress.h"

// Draws a scene band by band.
class pngPainter {
 public:
  // All arguments must outlive this object. `line_width` is in samples; 0 draws no lines.
  pngPainter(const viewScene& scene, const std::vector<viewMesh>& meshes, const pngCamera& camera, float line_width);

  void paint(pngBand& band);

 private:
  struct Extent {
    float top, bottom;
  };

  bool reaches(std::size_t node, const pngBand& band) const;
  void place(const viewScene::Node& node, const viewMesh& mesh);
  void paint_surface(const viewScene::Node& node, pngBand& band);
  void paint_lines(const viewScene::Node& node, pngBand& band);
  float opacity_of_lines(const viewScene::Node& node) const;
  void paint_range(const viewMesh& mesh, const viewMesh::Range& range, const annColour& look, pngBand& band);
  pngColour lit(const annColour& colour, viewMesh::Normal normal, const viewMesh::Normal& facet) const;

  const viewScene& scene_;
  const std::vector<viewMesh>& meshes_;
  const pngCamera& camera_;
  float line_width_;
  annVector sky_;                // the up direction in the picture
  std::vector<Extent> extents_;  // of the nodes
  // Data of the current part.
  std::vector<pngPoint> points_;
  std::vector<viewMesh::Normal> normals_;
  // Transparent triangles, drawn after everything else.
  std::vector<pngTriangle> clear_;
};
