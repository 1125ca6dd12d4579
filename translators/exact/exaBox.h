#pragma once

#include <TopoDS_Shape.hxx>
#include <optional>

#include "annBox.h"

// The tightest bounding box of a shape, without the margins that the kernel adds. Empty when the shape has no points
// or is infinite. Exceptions of the kernel are passed on.
std::optional<annBox> exa_box(const TopoDS_Shape& shape);
