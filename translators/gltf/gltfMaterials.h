#pragma once

#include <array>
#include <compare>
#include <optional>
#include <vector>

#include "annMaterial.h"
#include "gltfModel.h"
#include "vltOnce.h"

// Where alpha counts. A material that does not say so is opaque, whatever it and its vertices have.
struct gltfAlpha {
  enum Mode { OPAQUE, MASK, BLEND };

  Mode mode = OPAQUE;
  double cutoff = 0.5;  // of MASK: what is less cannot be seen, everything else is opaque

  float opacity(double alpha) const;

  friend auto operator<=>(const gltfAlpha&, const gltfAlpha&) = default;
};

// What the colours of vertices are multiplied by to give those that one sees: linear, as files have them.
struct gltfBase {
  std::array<double, 4> colour{1, 1, 1, 1};
  gltfAlpha alpha{};  // what the opacity of the product comes to

  annColour shown(double red, double green, double blue, double opacity) const;
  annColour shown() const { return shown(1, 1, 1, 1); }

  // One that shows the same with vertices that have opacities or do not: as simple as can be, so that vertices whose
  // materials differ in name only are the same.
  gltfBase of_vertices(bool have_opacities) const;

  friend auto operator<=>(const gltfBase&, const gltfBase&) = default;
};

struct gltfMaterial {
  annMaterial look;
  gltfBase base;
  bool is_look;  // false when it has neither a name nor a colour: the looks are those of the vertices then
  bool double_sided = false;
};

// The materials of a file: of each the name, the base colour and, where the file says that it counts, the opacity.
class gltfMaterials {
 public:
  gltfMaterials(const gltfModel& model, vltOnce& findings)
      : model_(model), findings_(findings), materials_(model.count(gltfMATERIALS)) {}

  // Null, and a message, when the material is not as it must be.
  const gltfMaterial* find(std::size_t index);

  // Nothing, and a message, when the material does not say it as it must.
  std::optional<gltfAlpha> alpha(std::size_t index) const;

 private:
  std::optional<gltfMaterial> read(std::size_t index) const;

  const gltfModel& model_;
  vltOnce& findings_;
  std::vector<std::optional<gltfMaterial>> materials_;
};
