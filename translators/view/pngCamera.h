#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "pngBand.h"
#include "viewMesh.h"
#include "viewScene.h"

// The axes of a parallel view.
struct pngDirection {
  annVector right, up, towards;
};

// The direction of a named standard view; empty for an unknown name.
std::optional<pngDirection> png_direction(std::string_view view);

// Transforms points and directions of a scene to those of the picture.
class pngCamera {
 public:
  // `direction` is for a scene with +Z up. The whole scene fits a picture of this size, with a narrow margin.
  pngCamera(const pngDirection& direction, const viewScene& scene, const std::vector<viewMesh>& meshes, double width,
            double height);

  // False when numbers overflow because the scene is too large.
  bool is_usable() const;

  pngPoint point(annVector p) const;

  // Samples per length unit of the scene.
  double scale() const { return scale_; }

  // In picture directions: right, up, towards the eye.
  annVector direction(annVector d) const;

 private:
  pngDirection axes_;
  annVector middle_;  // along the axes
  double scale_ = 0;
  double half_width_, half_height_;
};
