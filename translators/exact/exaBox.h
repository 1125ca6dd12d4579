#pragma once

#include <TopoDS_Shape.hxx>
#include <optional>

#include "annBox.h"

// The closest box around a shape, without the margins that the kernel lays around what it measures step by step; none
// when there is nothing to enclose or it has no end. What the kernel throws passes through.
std::optional<annBox> exa_box(const TopoDS_Shape& shape);
