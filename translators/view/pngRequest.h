#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "pngCamera.h"
#include "velTableInstance.h"
#include "velabsOutput.h"

// The options of a picture, from the resources.
struct pngRequest {
  std::size_t width, height;
  pngDirection direction;
  std::optional<std::array<std::uint8_t, 3>> background;  // none: transparent
  bool lines;
};

// Empty, with a message for each, when a resource has an invalid value.
std::optional<pngRequest> png_request(const velTableInstance& resources, velabsOutput& output);
