#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "pngCamera.h"
#include "velTableInstance.h"
#include "velabsOutput.h"

// What the resources ask of a picture.
struct pngRequest {
  std::size_t width, height;
  pngDirection direction;
  std::optional<std::array<std::uint8_t, 3>> background;  // none: transparent
  bool lines;
};

// Nothing, and a message for each, when a resource has a value that makes no sense.
std::optional<pngRequest> png_request(const velTableInstance& resources, velabsOutput& output);
