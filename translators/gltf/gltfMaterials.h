#pragma once

#include <array>
#include <compare>
#include <optional>
#include <vector>

#include "annMaterial.h"
#include "gltfModel.h"
#include "vltOnce.h"

// How alpha is used. A material without an alpha mode is opaque, whatever its alpha and that of its vertices.
struct gltfAlpha {
  enum Mode { OPAQUE, MASK, BLEND };

  Mode mode = OPAQUE;
  double cutoff = 0.5;  // for MASK: alpha below this is invisible, any other is opaque

  float opacity(double alpha) const;

  friend auto operator<=>(const gltfAlpha&, const gltfAlpha&) = default;
};

// The factor for vertex colours that gives the visible colour; linear, as in the file.
struct gltfBase {
  std::array<double, 4> colour{1, 1, 1, 1};
  gltfAlpha alpha{};  // applied to the product of the opacities

  annColour shown(double red, double green, double blue, double opacity) const;
  annColour shown() const { return shown(1, 1, 1, 1); }

  // An equivalent base for vertices with or without opacities, in its simplest form, so that vertices whose materials
  // differ only in name compare equal.
  gltfBase of_vertices(bool have_opacities) const;

  friend auto operator<=>(const gltfBase&, const gltfBase&) = default;
};

struct gltfMaterial {
  annMaterial look;
  gltfBase base;
  bool is_look;  // false when it has neither a name nor a colour
  bool double_sided = false;
};

// The materials of a file: the name, the base colour and, where the alpha mode uses it, the opacity.
class gltfMaterials {
 public:
  gltfMaterials(const gltfModel& model, vltOnce& findings)
      : model_(model), findings_(findings), materials_(model.count(gltfMATERIALS)) {}

  // Null, with a message, when the material is invalid.
  const gltfMaterial* find(std::size_t index);

  // Empty, with a message, when the alpha mode of the material is invalid.
  std::optional<gltfAlpha> alpha(std::size_t index) const;

 private:
  std::optional<gltfMaterial> read(std::size_t index) const;

  const gltfModel& model_;
  vltOnce& findings_;
  std::vector<std::optional<gltfMaterial>> materials_;
};
