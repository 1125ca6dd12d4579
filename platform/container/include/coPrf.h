#pragma once

#include <memory>

// A shared, counted reference; may be null.
template <typename T>
using coPrf = std::shared_ptr<T>;
