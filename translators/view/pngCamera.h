#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "pngBand.h"
#include "viewMesh.h"
#include "viewScene.h"

// From where a picture is taken, in parallel lines.
struct pngDirection {
  annVector right, up, towards;
};

// By the name of a standard view; none for another name.
std::optional<pngDirection> png_direction(std::string_view view);

// From a mesh's own points and normals to those of the picture: what the parts of a scene have in common, and what one
// placement makes of it.
class pngCamera {
 public:
  // `direction` is for a scene with +Z up. The whole scene fills a picture of that size but for a narrow margin.
  pngCamera(const pngDirection& direction, const viewScene& scene, const std::vector<viewMesh>& meshes, double width,
            double height);

  // False when the scene is too large for numbers.
  bool is_usable() const;

  pngPoint point(annVector p) const;

  // Samples for a unit of length of the scene.
  double scale() const { return scale_; }

  // In the picture's directions: right, up, towards the eye.
  annVector direction(annVector d) const;

 private:
  pngDirection axes_;
  annVector middle_;  // along the axes
  double scale_ = 0;
  double half_width_, half_height_;
};
